#pragma once

#include <string>
#include <string_view>

namespace kerlune {

std::string sha256Hex(std::string_view bytes);

} // namespace kerlune
