#pragma once

#include "Platform/LineDrawing.h"
#include "Support/CpuStopwatch.h"

#include <QSize>

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace kerlune {

// Lines of text in their places on an image.
struct PlacedText {
    struct Line {
        ShapedLine shaped;
        LinePlacement placement;
    };

    std::vector<Line> lines;
    double scale = 1;    // of the size asked for
    double baseline = 0; // of the first line, in pixels from the top
};

// Places text on an image so that none of its ink is cut off: smaller than asked for where it does not fit.
//
// Thread: the drawing's.
// Errors: absent when the text has no ink, or takes longer than a preview may.
class PreviewLayout final {
public:
    struct Face {
        std::shared_ptr<const FontFace> face;
        LineDrawing &drawing;
        FontMetrics metrics;
        bool centresXHeight; // else what is inked is centred
    };

    // These must outlive the layout.
    PreviewLayout(const Face &face, const ShapingOptions &options, const QSize &size);

    std::optional<PlacedText> placeLine(ShapedLine line);
    // `asLine` is the whole text shaped as one line.
    std::optional<PlacedText> placeParagraphs(std::string_view text, const ShapedLine &asLine);

    bool isTooCostly() const;

private:
    struct Piece;
    struct Row;

    std::vector<Piece> measured(std::string_view text, const ShapedLine &asLine) const;
    std::vector<Row> rows(const std::vector<Piece> &pieces, double scale) const;
    bool mayFit(const std::vector<Piece> &pieces, double scale) const;
    std::vector<PlacedText::Line> shaped(const std::vector<Row> &rows) const;
    std::optional<PixelBox> place(PlacedText &text, const std::vector<Row> &rows);
    bool isInside(const PixelBox &ink) const;

    const Face &m_face;
    const ShapingOptions &m_options;
    double m_width;
    double m_height;
    double m_lineHeight; // at the size asked for
    CpuStopwatch m_stopwatch;
};

} // namespace kerlune
