#pragma once

#include "Support/BigEndian.h"

#include <cstdint>

namespace kerlune {

class FontFace;

// Fields of the OpenType 'OS/2' table, with strict bounds and safe defaults.
//
// Thread: any (readOS2 of a face: the face's).
namespace SFNTReader {

struct OS2Info {
    std::uint16_t fsType = 0;        // embedding permissions
    std::uint16_t weightClass = 400; // usWeightClass, 1…1000
    std::uint16_t widthClass = 5;    // usWidthClass, 1…9
    bool panoseMonospaced = false;   // PANOSE bProportion is 9
};

OS2Info readOS2(const FontFace &face);
// A table that is missing or shorter than 10 bytes gives the defaults.
OS2Info readOS2(ByteView table);

} // namespace SFNTReader

} // namespace kerlune
