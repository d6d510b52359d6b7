#pragma once

#include <cstdint>

namespace kerlune {

class FaceTables;

// No point of a glyph is drawn further from the origin than this, in pixels: beyond it FreeType's rasteriser would
// overflow.
constexpr double kFurthestPixel = 100'000;

// Whether a TrueType glyph can be composed in reasonable time: at most 64 levels and 16,384 nodes of components
// (OpenType 'glyf', composite glyphs). A few hundred bytes can describe a tree of billions.
//
// True as well where the face has no 'glyf' table. Thread: one at a time.
bool isComposable(const FaceTables &tables, std::uint32_t glyph);

} // namespace kerlune
