#pragma once

#include "Model/SFNTReader.h"

#include <cstdint>

namespace kerlune {

// Weight, width and posture of a face on scales from −1 to 1, and what else marks it.
struct FontTraits {
    // Bits of `symbolic`. The upper four bits hold the family class (the high byte of OpenType OS/2, sFamilyClass).
    static constexpr std::uint32_t kItalic = 0x1;
    static constexpr std::uint32_t kBold = 0x2;
    static constexpr std::uint32_t kExpanded = 0x20;
    static constexpr std::uint32_t kCondensed = 0x40;
    static constexpr std::uint32_t kMonospace = 0x400;
    static constexpr std::uint32_t kColor = 0x2000;
    static constexpr unsigned kFamilyClassShift = 28;

    double weight = 0; // 0 regular: 100 reads as −1, 700 as 0.6, 900 as 1
    double width = 0;  // 0 normal: class 1 reads as −1, class 9 as 1
    double slant = 0;  // 0 upright: 30 degrees to the right read as 1
    std::uint32_t symbolic = 0;
};

// Degrees, positive leaning right: of the axis slnt for a named instance that has it, else of OpenType 'post',
// italicAngle.
// Thread: the face's.
double slantAngle(const FontFace &face);

// From the tables of the face and, for a named instance, from its coordinates.
// Thread: the face's.
FontTraits readTraits(const FontFace &face, const SFNTReader::OS2Info &os2);

} // namespace kerlune
