#pragma once

#include <string>

namespace kerlune {

// The programs whose selected text can be given a font.
enum class HostApp { photoshop, illustrator, indesign, afterEffects, davinciResolve };

std::string displayName(HostApp host);

} // namespace kerlune
