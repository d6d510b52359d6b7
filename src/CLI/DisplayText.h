#pragma once

#include <string>
#include <string_view>

namespace kerlune {

// Foreign text as it may be printed on a terminal, on one line: control characters, which a terminal would obey, and
// bytes that are not UTF-8 become U+FFFD.
std::string displayText(std::string_view text);

} // namespace kerlune
