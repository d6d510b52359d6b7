#include "UI/Preview/PreviewLayout.h"

#include "Platform/LineBreaking.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace kerlune {

namespace {

constexpr std::chrono::seconds kMostTime{2};
constexpr double kMargin = 1; // pixels at the edges that stay without ink
constexpr double kStepDown = 0.97;
constexpr int kMostSteps = 100; // down to a twentieth of what should have fitted
constexpr int kSearchSteps = 12;

// Shaping takes the direction from a line's own first strong character, but it is the paragraph that decides.
std::string directed(const std::string &line, bool isRightToLeftParagraph)
{
    if (isRightToLeft(line) == isRightToLeftParagraph)
        return line;
    return (isRightToLeftParagraph ? "\u200F" : "\u200E") + line;
}

std::string_view withoutTrailingSpace(std::string_view text)
{
    const auto last = text.find_last_not_of(" \t\r\n");
    return last == std::string_view::npos ? std::string_view() : text.substr(0, last + 1);
}

} // namespace

// What no line may be broken in. Widths are in pixels at the size asked for.
struct PreviewLayout::Piece {
    std::string_view text;
    double width = 0;
    double widthAtEnd = 0; // without the space after it
    bool endsParagraph = false;
};

struct PreviewLayout::Row {
    std::string text = {};
    double width = 0;
    bool isRightToLeft = false;
};

PreviewLayout::PreviewLayout(const Face &face, const ShapingOptions &options, const QSize &size)
    : m_face(face)
    , m_options(options)
    , m_width(size.width())
    , m_height(size.height())
    , m_lineHeight(options.size * std::clamp(face.metrics.ascent + face.metrics.descent, 1.25, 2.0))
{}

std::optional<PlacedText> PreviewLayout::placeLine(ShapedLine line)
{
    const auto ink = m_face.drawing.inkBox(line, {});
    if (!ink)
        return std::nullopt;
    PlacedText text;
    text.scale = std::min(
        {1.0, (m_width - 2 * kMargin) / (ink->right - ink->left), (m_height - 2 * kMargin) / (ink->bottom - ink->top)});
    text.lines.push_back({std::move(line), {}});
    for (int step = 0; step < kMostSteps && !isTooCostly(); ++step, text.scale *= kStepDown) {
        const auto placed = place(text, {Row{}});
        if (placed && isInside(*placed))
            return text;
    }
    return std::nullopt;
}

std::optional<PlacedText> PreviewLayout::placeParagraphs(std::string_view text, const ShapedLine &asLine)
{
    const std::vector<Piece> pieces = measured(text, asLine);
    PlacedText placed;
    if (!mayFit(pieces, 1)) {
        double tooLarge = 1;
        placed.scale = 0;
        for (int i = 0; i < kSearchSteps; ++i) {
            const double middle = (placed.scale + tooLarge) / 2;
            (mayFit(pieces, middle) ? placed.scale : tooLarge) = middle;
        }
        if (placed.scale == 0)
            placed.scale = tooLarge;
    }
    for (int step = 0; step < kMostSteps && !isTooCostly(); ++step, placed.scale *= kStepDown) {
        const std::vector<Row> broken = rows(pieces, placed.scale);
        placed.lines = shaped(broken);
        const auto ink = place(placed, broken);
        if (!ink)
            return std::nullopt;
        if (isInside(*ink))
            return placed;
    }
    return std::nullopt;
}

bool PreviewLayout::isTooCostly() const
{
    return m_stopwatch.elapsed() > kMostTime;
}

std::vector<PreviewLayout::Piece> PreviewLayout::measured(std::string_view text, const ShapedLine &asLine) const
{
    std::vector<double> advances(text.size() + 1);
    for (const ShapedGlyph &glyph : asLine.glyphs)
        advances[std::min<std::size_t>(glyph.cluster, text.size())] += glyph.advance;

    std::vector<Piece> pieces;
    std::size_t at = 0;
    for (const LineSegment &segment : lineSegments(text)) {
        Piece piece{.text = segment.text, .endsParagraph = segment.endsParagraph};
        const std::size_t visibleEnd = at + withoutTrailingSpace(segment.text).size();
        for (; at < visibleEnd; ++at)
            piece.widthAtEnd += advances[at];
        piece.width = piece.widthAtEnd;
        for (const std::size_t end = visibleEnd + segment.text.size() - withoutTrailingSpace(segment.text).size();
             at < end; ++at)
            piece.width += advances[at];
        pieces.push_back(piece);
    }
    return pieces;
}

// As many pieces on each row as go there at this scale, at least one.
std::vector<PreviewLayout::Row> PreviewLayout::rows(const std::vector<Piece> &pieces, double scale) const
{
    const double room = (m_width - 2 * kMargin) / scale;
    std::vector<Row> rows;
    bool startsRow = true;
    bool startsParagraph = true;
    double pen = 0;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const Piece &piece = pieces[i];
        if (startsRow || pen + piece.widthAtEnd > room) {
            rows.push_back({.isRightToLeft = !startsParagraph && rows.back().isRightToLeft});
            pen = 0;
        }
        if (startsParagraph) {
            std::string paragraph;
            for (std::size_t j = i; j < pieces.size() && (j == i || !pieces[j - 1].endsParagraph); ++j)
                paragraph += pieces[j].text;
            rows.back().isRightToLeft = isRightToLeft(paragraph);
        }
        rows.back().text += piece.text;
        rows.back().width = pen + piece.widthAtEnd;
        pen += piece.width;
        startsRow = piece.endsParagraph;
        startsParagraph = piece.endsParagraph;
    }
    return rows;
}

bool PreviewLayout::mayFit(const std::vector<Piece> &pieces, double scale) const
{
    const std::vector<Row> broken = rows(pieces, scale);
    const double room = (m_width - 2 * kMargin) / scale;
    return static_cast<double>(broken.size()) * m_lineHeight * scale <= std::max(m_height, m_lineHeight * scale) &&
           std::all_of(broken.begin(), broken.end(), [room](const Row &row) { return row.width <= room; });
}

std::vector<PlacedText::Line> PreviewLayout::shaped(const std::vector<Row> &rows) const
{
    std::vector<PlacedText::Line> lines;
    for (const Row &row : rows) {
        const std::string visible(withoutTrailingSpace(row.text));
        lines.push_back({shape(m_face.face, directed(visible, row.isRightToLeft), m_options), {}});
        if (isTooCostly())
            break;
    }
    return lines;
}

// Sets the lines' places at the text's scale and gives all their ink, absent when there is none.
std::optional<PixelBox> PreviewLayout::place(PlacedText &text, const std::vector<Row> &rows)
{
    PixelBox all;
    for (std::size_t i = 0; i < text.lines.size(); ++i) {
        PlacedText::Line &line = text.lines[i];
        line.placement = {.x = 0, .y = static_cast<double>(i) * m_lineHeight * text.scale, .scale = text.scale};
        auto ink = m_face.drawing.inkBox(line.shaped, line.placement);
        if (!ink)
            continue; // an empty line
        if (rows[i].isRightToLeft)
            line.placement.x = m_width - kMargin - line.shaped.width * text.scale;
        line.placement.x = std::min(line.placement.x, m_width - kMargin - ink->right);
        line.placement.x = std::max(line.placement.x, kMargin - ink->left);
        ink->left += line.placement.x;
        ink->right += line.placement.x;
        all = all.united(*ink);
    }
    if (all.isEmpty())
        return std::nullopt;

    const double lastBaseline = text.lines.back().placement.y;
    double baseline = (m_height - all.top - all.bottom) / 2;
    if (m_face.centresXHeight)
        baseline = baselineForCentredXHeight(m_face.metrics, m_options.size * text.scale, m_height) - lastBaseline / 2;
    baseline = std::round(baseline); // stems stand on whole pixels
    baseline = std::min(baseline, std::floor(m_height - kMargin - all.bottom));
    baseline = std::max(baseline, std::ceil(kMargin - all.top));
    for (PlacedText::Line &line : text.lines)
        line.placement.y += baseline;
    text.baseline = baseline;
    all.top += baseline;
    all.bottom += baseline;
    return all;
}

bool PreviewLayout::isInside(const PixelBox &ink) const
{
    constexpr double kRounding = 1e-6;
    return ink.left >= kMargin - kRounding && ink.top >= kMargin - kRounding &&
           ink.right <= m_width - kMargin + kRounding && ink.bottom <= m_height - kMargin + kRounding;
}

} // namespace kerlune
