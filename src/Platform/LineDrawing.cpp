#include "Platform/LineDrawing.h"

#include "Platform/BitmapGlyphs.h"
#include "Platform/GlyphInk.h"
#include "Platform/GlyphOutlines.h"
#include "Platform/Palette.h"
#include "Support/CpuStopwatch.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_COLOR_H

#include <algorithm>
#include <utility>

namespace kerlune {

namespace {

constexpr std::chrono::seconds kMostTime{2};
constexpr std::size_t kMostLayers = 16'384;

// A glyph in one colour.
struct Layer {
    std::uint32_t glyph;
    std::uint32_t colorIndex;
};

Affine glyphMap(const ShapedGlyph &glyph, const ShapedLine &line, const LinePlacement &placement,
                std::uint32_t unitsPerEm)
{
    const double scale = line.size * placement.scale / unitsPerEm;
    return {.xx = scale,
            .xy = 0,
            .dx = placement.x + glyph.x * placement.scale,
            .yx = 0,
            .yy = -scale,
            .dy = placement.y - glyph.y * placement.scale};
}

// Fills outlines on an image in one colour after the other.
class Brush final {
public:
    Brush(GlyphOutlines &outlines, ColorImage &image)
        : m_outlines(outlines)
        , m_image(image)
        , m_area{0, 0, static_cast<int>(image.width()), static_cast<int>(image.height())}
        , m_sink([this](int row, int left, int length, std::uint8_t coverage) { blend(row, left, length, coverage); })
    {}
    Brush(const Brush &) = delete;
    Brush &operator=(const Brush &) = delete;

    GlyphInk fill(std::uint32_t glyph, const Affine &map, const Color &color)
    {
        m_ink = GlyphInk::Blank;
        m_pixel = premultiplied(color);
        return m_outlines.fill(glyph, map, m_area, m_sink) ? m_ink : GlyphInk::NoForm;
    }

private:
    void blend(int row, int left, int length, std::uint8_t coverage)
    {
        const Pixel source = scaled(m_pixel, coverage);
        if (source == 0)
            return;
        m_ink = GlyphInk::Inked;
        const auto pixels = m_image.row(static_cast<std::uint32_t>(row))
                                .subspan(static_cast<std::size_t>(left), static_cast<std::size_t>(length));
        if (source >> 24 == 255) {
            std::fill(pixels.begin(), pixels.end(), source);
            return;
        }
        for (Pixel &pixel : pixels)
            pixel = over(source, pixel);
    }

    GlyphOutlines &m_outlines;
    ColorImage &m_image;
    PixelArea m_area;
    GlyphOutlines::SpanSink m_sink;
    Pixel m_pixel = 0;
    GlyphInk m_ink = GlyphInk::Blank;
};

} // namespace

struct LineDrawing::Implementation {
    Implementation(std::unique_ptr<GlyphOutlines> openOutlines, std::shared_ptr<const FontFace> face)
        : outlines(std::move(openOutlines))
        , bitmaps(std::move(face))
        , palette(outlines->freeType())
        , hasLayers(outlines->face().tables().has(tag("COLR")))
    {}

    // Those of the layers that can be drawn, from the lowest up.
    std::vector<Layer> layers(std::uint32_t glyph) const
    {
        std::vector<Layer> found;
        FT_LayerIterator iterator{};
        Layer layer{};
        while (hasLayers && found.size() < kMostLayers &&
               FT_Get_Color_Glyph_Layer(outlines->freeType(), glyph, &layer.glyph, &layer.colorIndex, &iterator) != 0) {
            if (outlines->has(layer.glyph))
                found.push_back(layer);
        }
        return found;
    }

    std::optional<PixelBox> inkBox(std::uint32_t glyph, const Affine &map) const
    {
        std::optional<PixelBox> box;
        for (const Layer &layer : layers(glyph))
            box = box.value_or(PixelBox{}).united(outlines->boundingBox(layer.glyph, map).value_or(PixelBox{}));
        if (!box)
            box = bitmaps.inkBox(glyph, map);
        return box ? box : outlines->boundingBox(glyph, map);
    }

    GlyphInk drawLayers(std::uint32_t glyph, const Affine &map, const Color &textColor, Brush &brush,
                        const CpuStopwatch &stopwatch) const
    {
        GlyphInk ink = GlyphInk::NoForm;
        for (const Layer &layer : layers(glyph)) {
            if (stopwatch.elapsed() > kMostTime)
                break;
            ink = std::max(ink, brush.fill(layer.glyph, map, palette.color(layer.colorIndex, textColor)));
        }
        return ink;
    }

    GlyphInk draw(std::uint32_t glyph, const Affine &map, const Color &textColor, Brush &brush, ColorImage &image,
                  const CpuStopwatch &stopwatch) const
    {
        GlyphInk ink = drawLayers(glyph, map, textColor, brush, stopwatch);
        if (ink == GlyphInk::NoForm)
            ink = bitmaps.draw(glyph, map, image);
        return ink == GlyphInk::NoForm ? brush.fill(glyph, map, textColor) : ink;
    }

    std::unique_ptr<GlyphOutlines> outlines;
    BitmapGlyphs bitmaps;
    Palette palette;
    bool hasLayers;
};

LineDrawing::LineDrawing(std::unique_ptr<Implementation> implementation)
    : m_implementation(std::move(implementation))
{}

LineDrawing::~LineDrawing() = default;

tl::expected<std::unique_ptr<LineDrawing>, FontError> LineDrawing::create(std::shared_ptr<const FontFace> face)
{
    auto outlines = GlyphOutlines::open(face);
    if (!outlines)
        return tl::unexpected(outlines.error());
    return std::unique_ptr<LineDrawing>(
        new LineDrawing(std::make_unique<Implementation>(std::move(*outlines), std::move(face))));
}

const FontFace &LineDrawing::face() const
{
    return m_implementation->outlines->face();
}

std::optional<PixelBox> LineDrawing::inkBox(const ShapedLine &line, const LinePlacement &placement)
{
    const CpuStopwatch stopwatch;
    m_implementation->outlines->moveTo(line.coordinates);
    PixelBox box;
    for (const ShapedGlyph &glyph : line.glyphs) {
        if (stopwatch.elapsed() > kMostTime)
            return std::nullopt;
        const Affine map = glyphMap(glyph, line, placement, face().unitsPerEm());
        box = box.united(m_implementation->inkBox(glyph.glyph, map).value_or(PixelBox{}));
    }
    return box.isEmpty() ? std::nullopt : std::optional(box);
}

LineDrawing::Outcome LineDrawing::draw(const ShapedLine &line, const LinePlacement &placement, const Color &textColor,
                                       ColorImage &image)
{
    const CpuStopwatch stopwatch;
    m_implementation->outlines->moveTo(line.coordinates);
    Brush brush(*m_implementation->outlines, image);
    auto ink = GlyphInk::NoForm;
    for (const ShapedGlyph &glyph : line.glyphs) {
        const Affine map = glyphMap(glyph, line, placement, face().unitsPerEm());
        ink = std::max(ink, m_implementation->draw(glyph.glyph, map, textColor, brush, image, stopwatch));
        if (stopwatch.elapsed() > kMostTime)
            return Outcome::TooCostly;
    }
    return ink == GlyphInk::Inked ? Outcome::Inked : Outcome::NoInk;
}

double baselineForCentredXHeight(const FontMetrics &metrics, double emPixels, double heightPixels)
{
    const double height = metrics.xHeight > 0 ? metrics.xHeight : metrics.capHeight;
    return (heightPixels + height * emPixels) / 2;
}

} // namespace kerlune
