#pragma once

#include "Platform/Directories.h"

namespace kerlune {

class FontCatalog;
class FontRegistry;
class ScriptEngine;

// What must outlive a program with a window.
struct ProgramParts {
    const FontCatalog &catalog;
    FontRegistry &registry;
    ScriptEngine &scripts;
    const Directories &directories;
};

} // namespace kerlune
