#pragma once

#include "Support/BigEndian.h"

#include <cstdint>
#include <optional>
#include <string>

namespace kerlune {

// The text of a name record as UTF-8, by its platform, encoding and language (OpenType 'name', "Platform IDs";
// Apple TrueType Reference, "Macintosh encoding IDs"). Absent when the bytes are not valid in that encoding, or when
// the encoding is unknown and the bytes are not plain ASCII.
//
// Thread: any.
std::optional<std::string> decodeName(ByteView bytes, std::uint16_t platform, std::uint16_t encoding,
                                      std::uint16_t language);

// The Mac Roman byte of a character, if it has one.
std::optional<std::uint8_t> macRomanByte(char32_t character);

} // namespace kerlune
