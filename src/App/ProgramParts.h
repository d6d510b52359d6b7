#pragma once

#include "Platform/Directories.h"

namespace kerlune {

class FontCatalog;
class FontRegistry;

// What must outlive a program with a window.
struct ProgramParts {
    const FontCatalog &catalog;
    FontRegistry &registry;
    const Directories &directories;
};

} // namespace kerlune
