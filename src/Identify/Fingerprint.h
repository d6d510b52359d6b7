#pragma once

#include "Platform/FontFace.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kerlune {

class Font;
class FontCatalog;

// How a font draws its letters, as a vector: the coverage grids of "a", "e", "g", "n", "o" and "R", then eight
// proportions. Vectors have unit length; the dot product of two says how alike the fonts are, 1 for the same drawings.
//
// Vectors are stored: the numbers here never change.
//
// Thread: any; a font is used by one at a time.
// Errors: none. What cannot be measured is absent.
namespace Fingerprint {

inline constexpr std::size_t kGridSide = 12;
inline constexpr std::size_t kGridCells = kGridSide * kGridSide;
inline constexpr std::size_t kGlyphs = 6;
inline constexpr std::size_t kMetrics = 8;
inline constexpr std::size_t kLength = kGlyphs * kGridCells + kMetrics; // 872
inline constexpr double kFontSize = 96;                                 // points, of every font below

using Vector = std::vector<float>;          // of kLength numbers
using Grid = std::array<float, kGridCells>; // 12 × 12 cells, row-major, top row first; mean coverage, each 0…1

// Of the font on offer with this PostScript name. Absent when there is none, when its capitals are not higher than a
// point, and when fewer than four of the six letters draw anything.
std::optional<Vector> compute(const FontCatalog &catalog, const std::string &postScriptName);
std::optional<Vector> compute(const std::shared_ptr<const FontFace> &face);

// Of the first character of a text, where it lies in the Basic Multilingual Plane and the font has it.

// The glyph as large as fits and centred. Absent when it is half a point wide or high, or less.
std::optional<Grid> renderNormalized(const Font &font, std::string_view character);

// Lengths of the ink along one row of a drawing 128 pixels high, from left to right; the fraction counts from the top.
// Absent where there is no ink.
std::optional<std::vector<int>> horizontalInkRuns(const Font &font, std::string_view character, double fraction);

struct StemExtremes {
    double thick = 0; // pixels of the drawing to the point of cap height
    double thin = 0;
};
StemExtremes stemExtremes(const Font &font, std::string_view character, double capHeight);

double advance(const Font &font, std::string_view character);   // points; 0 without the glyph
double roundness(const Font &font, std::string_view character); // mean of the grid; 0 without one

Vector l2Normalized(Vector vector); // of length 1, unless it is 0.0001 or shorter

// As it is stored: 32-bit little-endian floats without header. Bytes beyond the last whole number do not count.
Vector decode(std::span<const std::uint8_t> bytes);

} // namespace Fingerprint

} // namespace kerlune
