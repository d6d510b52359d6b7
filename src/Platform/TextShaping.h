#pragma once

#include "Platform/FontFace.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kerlune {

// An OpenType feature and its value: 0 is off, 1 on, more chooses among alternates.
struct FeatureValue {
    Tag feature;
    std::uint32_t value;

    bool operator==(const FeatureValue &) const = default;
};

struct ShapingOptions {
    double size = 0; // of the em, in points
    std::vector<FeatureValue> features = {};
    std::vector<AxisValue> coordinates = {}; // in place of the face's own; axes that it lacks are passed over
    std::string language = {};               // BCP 47, may be empty
};

struct ShapedGlyph {
    std::uint32_t glyph;
    double x; // of the glyph's origin from the line's, in points
    double y; // upwards
    double advance;
    std::uint32_t cluster; // where its characters begin, in bytes of the text
};

// A line of text as the glyphs of one face.
struct ShapedLine {
    double size = 0;
    std::vector<AxisValue> coordinates = {};         // one for each axis, in the order of 'fvar'
    std::vector<ShapedGlyph> glyphs = {};            // from left to right
    double width = 0;                                // points
    std::vector<std::uint32_t> missingClusters = {}; // that the face has no glyph for, ascending
    bool isTooCostly = false;                        // given up; there are no glyphs then
};

constexpr std::size_t kMostCharactersOfLine = 4096; // the rest is left out
constexpr std::size_t kMostGlyphsOfLine = 65'536;   // more count as too costly
constexpr std::chrono::seconds kMostTimeForLine{2}; // processor time; looked at between two lookups of the font

// Shapes a line of UTF-8. The paragraph's direction is that of its first strong character. What is not UTF-8 becomes
// U+FFFD, line ends and tabulators become spaces, other control characters are left out. A symbol face shows its
// symbols in place of Latin letters.
//
// Thread: the face's.
ShapedLine shape(const std::shared_ptr<const FontFace> &face, std::string_view text, const ShapingOptions &options);

} // namespace kerlune
