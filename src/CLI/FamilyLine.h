#pragma once

#include "Model/FontFamily.h"

#include <string>

namespace kerlune {

// A family with its class and its number of faces, for display.
std::string familyLine(const FontFamily &family);

} // namespace kerlune
