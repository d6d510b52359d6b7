#include "UI/Panels/GlyphDrawer.h"

#include "Platform/FaceOpening.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace kerlune {

namespace {

constexpr double kInkMargin = 3; // device pixels between the ink and the edge

ShapedLine lineOf(const std::shared_ptr<const FontFace> &face, std::uint32_t glyph, const GlyphDrawer::Style &style)
{
    // An empty line lies at the right place in the design space.
    ShapedLine line = shape(face, {}, {.size = style.emPixels, .coordinates = style.coordinates});
    line.glyphs.push_back({.glyph = glyph, .x = 0, .y = 0, .advance = 0, .cluster = 0});
    return line;
}

QImage drawn(LineDrawing &drawing, const ShapedLine &line, const LinePlacement &placement,
             const GlyphDrawer::Style &style)
{
    auto pixels = ColorImage::create(static_cast<std::uint32_t>(std::max(1, style.size.width())),
                                     static_cast<std::uint32_t>(std::max(1, style.size.height())));
    const Color ink{static_cast<std::uint8_t>(style.color.red()), static_cast<std::uint8_t>(style.color.green()),
                    static_cast<std::uint8_t>(style.color.blue())};
    if (!pixels || drawing.draw(line, placement, ink, *pixels) != LineDrawing::Outcome::Inked)
        return {};
    QImage image(static_cast<int>(pixels->width()), static_cast<int>(pixels->height()),
                 QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        const auto row = pixels->row(static_cast<std::uint32_t>(y));
        std::memcpy(image.scanLine(y), row.data(), row.size_bytes());
    }
    image.setDevicePixelRatio(style.devicePixelRatio);
    return image;
}

} // namespace

std::shared_ptr<GlyphDrawer> GlyphDrawer::open(const FontRecord &record)
{
    auto face = openFace(record.filePath, record.postScriptName);
    return face ? create(*std::move(face)) : nullptr;
}

std::shared_ptr<GlyphDrawer> GlyphDrawer::create(std::shared_ptr<const FontFace> face)
{
    auto drawing = LineDrawing::create(face);
    if (!drawing)
        return nullptr;
    return std::shared_ptr<GlyphDrawer>(new GlyphDrawer(std::move(face), *std::move(drawing)));
}

GlyphDrawer::GlyphDrawer(std::shared_ptr<const FontFace> face, std::unique_ptr<LineDrawing> drawing)
    : m_face(std::move(face))
    , m_drawing(std::move(drawing))
    , m_metrics(readMetrics(m_face))
{}

QImage GlyphDrawer::draw(std::uint32_t glyph, const Style &style)
{
    const ShapedLine line = lineOf(m_face, glyph, style);
    const auto ink = m_drawing->inkBox(line, {});
    if (!ink || ink->isEmpty())
        return {};
    const double width = style.size.width() - 2 * kInkMargin;
    const double height = style.size.height() - 2 * kInkMargin;
    const double scale = std::min({1.0, width / (ink->right - ink->left), height / (ink->bottom - ink->top)});
    if (!(scale > 0))
        return {};
    // On the baseline that all glyphs share, but where that would push the ink over the edge.
    const double shared = (style.size.height() + (m_metrics.ascent - m_metrics.descent) * style.emPixels) / 2;
    const double baseline =
        std::clamp(std::round(shared), kInkMargin - ink->top * scale,
                   std::max(kInkMargin - ink->top * scale, kInkMargin + height - ink->bottom * scale));
    const double x = (style.size.width() - (ink->left + ink->right) * scale) / 2;
    return drawn(*m_drawing, line, {.x = x, .y = baseline, .scale = scale}, style);
}

GlyphDrawer::Portrait GlyphDrawer::portray(std::uint32_t glyph, const Style &style)
{
    Portrait portrait;
    portrait.unitsPerEm = m_face->unitsPerEm();
    portrait.measures = measureGlyph(m_face, glyph, style.coordinates);
    if (portrait.unitsPerEm == 0)
        return portrait;
    const double em = portrait.unitsPerEm;
    const GlyphMeasures::Bounds bounds = portrait.measures.bounds.value_or(GlyphMeasures::Bounds{});
    const double top = std::max({m_metrics.ascent, m_metrics.capHeight, bounds.top / em});
    const double bottom = std::min({-m_metrics.descent, bounds.bottom / em, 0.0});
    const double left = std::min(0.0, bounds.left / em);
    const double right = std::max({portrait.measures.advance / em, bounds.right / em, 0.1});
    const double size = std::min((style.size.width() - 4 * kInkMargin) / (right - left),
                                 (style.size.height() - 2 * kInkMargin) / std::max(0.1, top - bottom));
    if (!(size > 0) || !std::isfinite(size))
        return portrait;
    portrait.baseline = kInkMargin + top * size;
    portrait.xHeight = portrait.baseline - m_metrics.xHeight * size;
    portrait.capHeight = portrait.baseline - m_metrics.capHeight * size;
    portrait.left = (style.size.width() - (left + right) * size) / 2;
    portrait.right = portrait.left + portrait.measures.advance / em * size;
    Style large = style;
    large.emPixels = size;
    portrait.image = drawn(*m_drawing, lineOf(m_face, glyph, large), {portrait.left, portrait.baseline, 1}, large);
    return portrait;
}

} // namespace kerlune
