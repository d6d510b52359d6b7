#pragma once

#include "Model/FontRecord.h"
#include "Platform/FaceContents.h"
#include "Platform/FontMetrics.h"
#include "Platform/LineDrawing.h"

#include <QColor>
#include <QImage>
#include <QSize>

#include <memory>
#include <vector>

namespace kerlune {

// Draws single glyphs of one face, by their numbers.
//
// Thread: one at a time; not the main one, it reads the file.
class GlyphDrawer final {
public:
    struct Style {
        QSize size; // device pixels
        double emPixels = 0;
        QColor color;
        std::vector<AxisValue> coordinates = {};
        double devicePixelRatio = 1;

        bool operator==(const Style &) const = default;
    };

    // One glyph in large, and the lines that it stands on.
    struct Portrait {
        QImage image;         // null when the glyph draws nothing
        double baseline = 0;  // device pixels from the top
        double xHeight = 0;   // likewise; the baseline's where the face has none
        double capHeight = 0; // likewise
        double left = 0;      // the origin, device pixels from the left
        double right = 0;     // where the advance ends
        GlyphMeasures measures = {};
        std::uint32_t unitsPerEm = 0;
    };

    // Null when the face cannot be read or drawn.
    static std::shared_ptr<GlyphDrawer> open(const FontRecord &record);
    static std::shared_ptr<GlyphDrawer> create(std::shared_ptr<const FontFace> face);

    // Centred on its ink, and smaller where the ink would not fit. Null when there is none.
    QImage draw(std::uint32_t glyph, const Style &style);
    Portrait portray(std::uint32_t glyph, const Style &style); // as large as fits

private:
    GlyphDrawer(std::shared_ptr<const FontFace> face, std::unique_ptr<LineDrawing> drawing);

    std::shared_ptr<const FontFace> m_face;
    std::unique_ptr<LineDrawing> m_drawing;
    FontMetrics m_metrics;
};

} // namespace kerlune
