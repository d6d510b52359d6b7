#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace kerlune {

using ByteView = std::span<const std::uint8_t>;

// Big-endian integers of a font table (OpenType: all data types are big-endian). Every read is checked: an integer
// that does not lie inside the bytes as a whole is absent.

inline std::optional<std::uint16_t> readU16(ByteView bytes, std::size_t offset)
{
    if (bytes.size() < 2 || offset > bytes.size() - 2)
        return std::nullopt;
    return static_cast<std::uint16_t>((bytes[offset] << 8) | bytes[offset + 1]);
}

inline std::optional<std::int16_t> readI16(ByteView bytes, std::size_t offset)
{
    const auto value = readU16(bytes, offset);
    return value ? std::optional(static_cast<std::int16_t>(*value)) : std::nullopt;
}

inline std::optional<std::uint32_t> readU32(ByteView bytes, std::size_t offset)
{
    if (bytes.size() < 4 || offset > bytes.size() - 4)
        return std::nullopt;
    return (std::uint32_t{bytes[offset]} << 24) | (std::uint32_t{bytes[offset + 1]} << 16) |
           (std::uint32_t{bytes[offset + 2]} << 8) | std::uint32_t{bytes[offset + 3]};
}

// The bytes from `offset` on, at most `length` of them; empty when `offset` lies outside.
inline ByteView slice(ByteView bytes, std::size_t offset, std::size_t length = std::dynamic_extent)
{
    if (offset >= bytes.size())
        return {};
    const std::size_t available = bytes.size() - offset;
    return bytes.subspan(offset, length < available ? length : available);
}

} // namespace kerlune
