#pragma once

#include "Platform/ColorImage.h"
#include "Platform/FontMetrics.h"
#include "Platform/PixelBox.h"
#include "Platform/TextShaping.h"

#include <memory>
#include <optional>

namespace kerlune {

// Where a line goes on an image: its origin on the baseline, in pixels from the top left corner, y downwards. Fractions
// of a pixel count.
struct LinePlacement {
    double x = 0;
    double y = 0;
    double scale = 1; // pixels to the point
};

// Draws shaped lines of one face: unhinted outlines in the text's colour, or the glyph's own colours where it has some
// (OpenType 'COLR' version 0 with the first palette of 'CPAL', 'CBDT', 'sbix'). A glyph whose own colours cannot be
// drawn, such as one of 'SVG ' or of 'COLR' version 1, is drawn by its outline; beside 'CBDT' FreeType offers none.
//
// The face is opened once, for lines of any size and place in the design space; the glyphs last used are kept.
// Thread: one at a time, and the face's.
class LineDrawing final {
public:
    enum class Outcome {
        Inked,
        NoInk,     // nothing fell on the image
        TooCostly, // given up after 2 seconds of processor time; the image is not complete
    };

    static tl::expected<std::unique_ptr<LineDrawing>, FontError> create(std::shared_ptr<const FontFace> face);
    ~LineDrawing();
    LineDrawing(const LineDrawing &) = delete;
    LineDrawing &operator=(const LineDrawing &) = delete;

    const FontFace &face() const;

    // What draw() inks, wherever the image ends: exact for outlines, whole pixels for pictures. Absent when the line
    // has no ink or takes too long.
    std::optional<PixelBox> inkBox(const ShapedLine &line, const LinePlacement &placement);

    // Draws over what the image holds.
    Outcome draw(const ShapedLine &line, const LinePlacement &placement, const Color &textColor, ColorImage &image);

private:
    struct Implementation;
    explicit LineDrawing(std::unique_ptr<Implementation> implementation);
    std::unique_ptr<Implementation> m_implementation;
};

// The baseline, in pixels from the top, that sets the x-height in the middle between top and bottom; the height of
// capitals where the face has no x-height.
double baselineForCentredXHeight(const FontMetrics &metrics, double emPixels, double heightPixels);

} // namespace kerlune
