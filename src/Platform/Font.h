#pragma once

#include "Platform/CoverageImage.h"
#include "Platform/FontFace.h"

#include <memory>
#include <optional>

namespace kerlune {

// Axis-parallel box, y upwards, in points at the font's size.
struct GlyphBox {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
};

// Where a glyph goes on an image: pixels = scale × points + offset, from the bottom left corner, y upwards.
struct GlyphPlacement {
    double scale = 1;
    double x = 0;
    double y = 0;
};

// A face at a size in points, ready to draw: unhinted outlines at the face's place in its design space.
//
// Thread: one at a time.
// Errors: a glyph that has no outline, or one that would take unreasonably long to compose, has no box and draws
// nothing.
class Font final {
public:
    static tl::expected<std::unique_ptr<Font>, FontError> create(std::shared_ptr<const FontFace> face, double size);
    ~Font();
    Font(const Font &) = delete;
    Font &operator=(const Font &) = delete;

    const FontFace &face() const { return *m_face; }
    double size() const { return m_size; } // points

    std::uint32_t glyph(char32_t character) const { return m_characters.glyph(character); } // 0 when it is missing
    std::optional<GlyphBox> boundingBox(std::uint32_t glyph) const; // exact, not of the control points
    double advance(std::uint32_t glyph) const;                      // in points; 0 when the font tells none
    // Draws the outline on an empty image; false when there is nothing to draw.
    bool draw(std::uint32_t glyph, const GlyphPlacement &placement, CoverageImage &image) const;

private:
    Font(std::shared_ptr<const FontFace> face, double size, std::unique_ptr<FreeTypeFace> freeType);
    bool loadOutline(std::uint32_t glyph) const; // stays in FreeType's glyph slot until the next one

    std::shared_ptr<const FontFace> m_face;
    double m_size;
    CharacterMap m_characters;
    std::unique_ptr<FreeTypeFace> m_freeType;
    mutable std::optional<std::uint32_t> m_loaded; // the glyph in the slot
};

} // namespace kerlune
