#pragma once

#include <cstdint>

namespace kerlune {

// A four-character table or axis tag as a big-endian number (OpenType data type Tag).
using Tag = std::uint32_t;

constexpr Tag tag(const char (&text)[5])
{
    Tag value = 0;
    for (int i = 0; i < 4; ++i)
        value = (value << 8) | static_cast<unsigned char>(text[i]);
    return value;
}

} // namespace kerlune
