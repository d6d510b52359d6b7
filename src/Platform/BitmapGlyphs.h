#pragma once

#include "Platform/Affine.h"
#include "Platform/ColorImage.h"
#include "Platform/FontFace.h"
#include "Platform/GlyphInk.h"
#include "Platform/PixelBox.h"

#include <memory>
#include <optional>

namespace kerlune {

class FreeTypeFace;

// The coloured pictures that a face holds for its glyphs (OpenType 'CBDT' and 'sbix'), scaled from the strike that is
// the next larger one, else from the largest.
//
// Maps go from font units, y upwards, to pixels, y downwards, and only scale and move.
// Thread: one at a time, and the face's.
// Errors: a glyph that has no picture, or one that FreeType does not decode, has no such form.
class BitmapGlyphs final {
public:
    explicit BitmapGlyphs(std::shared_ptr<const FontFace> face);
    ~BitmapGlyphs();
    BitmapGlyphs(const BitmapGlyphs &) = delete;
    BitmapGlyphs &operator=(const BitmapGlyphs &) = delete;

    // Of the pixels that draw() may touch; empty when all of the picture is transparent.
    std::optional<PixelBox> inkBox(std::uint32_t glyph, const Affine &map) const;
    GlyphInk draw(std::uint32_t glyph, const Affine &map, ColorImage &image) const;

private:
    struct Picture;
    std::optional<Picture> load(std::uint32_t glyph, const Affine &map) const;

    std::shared_ptr<const FontFace> m_face;
    std::unique_ptr<FreeTypeFace> m_freeType; // absent when the face has no pictures
};

} // namespace kerlune
