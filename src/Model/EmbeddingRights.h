#pragma once

#include <cstdint>
#include <string>

namespace kerlune {

// What the maker allows a document to do with the font (OpenType OS/2, fsType).
enum class EmbeddingRights { installable, restricted, previewAndPrint, editable, unknown };

// The most restrictive of the bits 0x0002, 0x0004 and 0x0008 counts; the reserved bit 0x0001 alone is not trusted.
EmbeddingRights embeddingRightsFromFsType(std::uint16_t fsType);

std::string label(EmbeddingRights rights); // for display

} // namespace kerlune
