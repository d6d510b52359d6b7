#pragma once

#include <string>
#include <string_view>

namespace kerlune {

// Names of foreign origin as names of files. None leads to another folder or is longer than a file system takes; what
// is too long is cut and told apart by a digest.

// The name with "-" for each "/", and an extension such as ".ttf".
std::string fileNameFor(std::string_view name, std::string_view extension);
// The same, neither hidden nor "." nor "..": good for a folder too.
std::string visibleFileNameFor(std::string_view name, std::string_view extension = {});

} // namespace kerlune
