#pragma once

#include "Platform/Affine.h"
#include "Platform/FontFace.h"
#include "Platform/PixelBox.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

struct FT_FaceRec_;

namespace kerlune {

class FreeTypeFace;

// The outlines of a face at a place in its design space, unhinted, and their way onto pixels.
//
// Maps go from font units, y upwards, to pixels, y downwards.
// Thread: one at a time.
// Errors: a glyph that has no outline, or one that would take unreasonably long to compose, has no box and fills
// nothing.
class GlyphOutlines final {
public:
    // So many pixels of one row, from `left` on, are covered by so much of 255.
    using SpanSink = std::function<void(int row, int left, int length, std::uint8_t coverage)>;

    // At the face's own place in its design space.
    static tl::expected<std::unique_ptr<GlyphOutlines>, FontError> open(std::shared_ptr<const FontFace> face);
    ~GlyphOutlines();
    GlyphOutlines(const GlyphOutlines &) = delete;
    GlyphOutlines &operator=(const GlyphOutlines &) = delete;

    const FontFace &face() const { return *m_face; }
    FT_FaceRec_ *freeType() const; // at one pixel to the font unit, where it is scalable

    // Moves to a place in the design space: one value for each axis, in the order of 'fvar'.
    void moveTo(const std::vector<AxisValue> &coordinates);

    bool has(std::uint32_t glyph);
    std::optional<PixelBox> boundingBox(std::uint32_t glyph, const Affine &map); // exact, not of the control points
    // Fills by the nonzero winding rule what lies in the area; false when the glyph has no outline.
    bool fill(std::uint32_t glyph, const Affine &map, const PixelArea &area, const SpanSink &sink);

private:
    struct Outline;

    GlyphOutlines(std::shared_ptr<const FontFace> face, std::unique_ptr<FreeTypeFace> freeType);
    const Outline *outline(std::uint32_t glyph);
    Outline load(std::uint32_t glyph);
    Outline *mapped(std::uint32_t glyph, const Affine &map);

    struct Outlines;
    std::shared_ptr<const FontFace> m_face;
    std::unique_ptr<FreeTypeFace> m_freeType;
    std::vector<AxisValue> m_coordinates;
    std::unique_ptr<Outlines> m_outlines; // of the glyphs last used
};

} // namespace kerlune
