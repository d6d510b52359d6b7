#pragma once

namespace kerlune {

// What came of drawing a glyph in one of its forms.
enum class GlyphInk {
    NoForm, // the glyph has no such form, or none that can be drawn
    Blank,  // nothing fell on the image
    Inked,
};

} // namespace kerlune
