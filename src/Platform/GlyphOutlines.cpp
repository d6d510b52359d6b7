#include "Platform/GlyphOutlines.h"

#include "Platform/FreeTypeFace.h"
#include "Platform/GlyphLimits.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_BBOX_H
#include FT_IMAGE_H
#include FT_MULTIPLE_MASTERS_H
#include FT_OUTLINE_H

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <utility>

namespace kerlune {

namespace {

constexpr double kUnitsPerPixel = 64; // FreeType's 26.6
constexpr std::size_t kMostKeptPoints = 100'000;

void passSpans(int y, int count, const FT_Span *spans, void *sink)
{
    for (const FT_Span &span : std::span(spans, static_cast<std::size_t>(count)))
        (*static_cast<const GlyphOutlines::SpanSink *>(sink))(-1 - y, span.x, span.len, span.coverage);
}

FT_Pos inFreeTypeUnits(double pixels)
{
    if (!std::isfinite(pixels))
        return 0;
    return static_cast<FT_Pos>(std::lround(std::clamp(pixels, -kFurthestPixel, kFurthestPixel) * kUnitsPerPixel));
}

} // namespace

struct GlyphOutlines::Outline {
    FT_Outline header() // refers to the vectors
    {
        return {static_cast<short>(contours.size()),
                static_cast<short>(points.size()),
                points.data(),
                tags.data(),
                contours.data(),
                flags};
    }

    std::vector<FT_Vector> points = {}; // empty: there is nothing to draw
    std::vector<char> tags = {};
    std::vector<short> contours = {};
    int flags = 0;
};

struct GlyphOutlines::Outlines {
    std::unordered_map<std::uint32_t, Outline> byGlyph;
    std::size_t pointCount = 0;
    Outline mapped;
};

tl::expected<std::unique_ptr<GlyphOutlines>, FontError> GlyphOutlines::open(std::shared_ptr<const FontFace> face)
{
    if (face->unitsPerEm() == 0)
        return tl::unexpected(FontError::NoUnitsPerEm);
    auto freeType = FreeTypeFace::open(face->file(), face->faceIndex(), FreeTypeFace::Offer::Outlines);
    if (!freeType)
        return tl::unexpected(freeType.error());
    const auto em = static_cast<FT_UInt>(face->unitsPerEm());
    if (FT_IS_SCALABLE((*freeType)->face()))
        FT_Set_Pixel_Sizes((*freeType)->face(), em, em);
    std::unique_ptr<GlyphOutlines> outlines(new GlyphOutlines(std::move(face), std::move(*freeType)));
    outlines->moveTo(outlines->face().coordinates());
    return outlines;
}

GlyphOutlines::GlyphOutlines(std::shared_ptr<const FontFace> face, std::unique_ptr<FreeTypeFace> freeType)
    : m_face(std::move(face))
    , m_freeType(std::move(freeType))
    , m_outlines(std::make_unique<Outlines>())
{}

GlyphOutlines::~GlyphOutlines() = default;

FT_FaceRec_ *GlyphOutlines::freeType() const
{
    return m_freeType->face();
}

void GlyphOutlines::moveTo(const std::vector<AxisValue> &coordinates)
{
    if (coordinates == m_coordinates)
        return;
    m_coordinates = coordinates;
    *m_outlines = {};
    std::vector<FT_Fixed> values;
    values.reserve(coordinates.size());
    for (const AxisValue &coordinate : coordinates)
        values.push_back(static_cast<FT_Fixed>(std::lround(coordinate.value * 65536)));
    FT_Set_Var_Design_Coordinates(freeType(), static_cast<FT_UInt>(values.size()), values.data());
}

bool GlyphOutlines::has(std::uint32_t glyph)
{
    return outline(glyph) != nullptr;
}

std::optional<PixelBox> GlyphOutlines::boundingBox(std::uint32_t glyph, const Affine &map)
{
    Outline *const outline = mapped(glyph, map);
    if (outline == nullptr)
        return std::nullopt;
    FT_Outline header = outline->header();
    FT_BBox box{};
    if (FT_Outline_Get_BBox(&header, &box) != 0)
        return std::nullopt;
    const auto pixels = [](FT_Pos position) { return static_cast<double>(position) / kUnitsPerPixel; };
    return PixelBox{pixels(box.xMin), pixels(-box.yMax), pixels(box.xMax), pixels(-box.yMin)};
}

bool GlyphOutlines::fill(std::uint32_t glyph, const Affine &map, const PixelArea &area, const SpanSink &sink)
{
    Outline *const outline = mapped(glyph, map);
    if (outline == nullptr)
        return false;
    FT_Outline header = outline->header();
    FT_BBox box{};
    FT_Outline_Get_CBox(&header, &box);
    const PixelBox reach{
        static_cast<double>(box.xMin) / kUnitsPerPixel, static_cast<double>(-box.yMax) / kUnitsPerPixel,
        static_cast<double>(box.xMax) / kUnitsPerPixel, static_cast<double>(-box.yMin) / kUnitsPerPixel};
    const PixelBox visible{static_cast<double>(area.left), static_cast<double>(area.top),
                           static_cast<double>(area.right), static_cast<double>(area.bottom)};
    if (reach.intersected(visible).isEmpty())
        return true;
    FT_Raster_Params parameters{};
    parameters.flags = FT_RASTER_FLAG_AA | FT_RASTER_FLAG_DIRECT | FT_RASTER_FLAG_CLIP;
    parameters.gray_spans = passSpans;
    parameters.user = const_cast<SpanSink *>(&sink); // NOLINT(cppcoreguidelines-pro-type-const-cast)
    parameters.clip_box = {area.left, -area.bottom, area.right, -area.top};
    FT_Outline_Render(m_freeType->library(), &header, &parameters);
    return true;
}

const GlyphOutlines::Outline *GlyphOutlines::outline(std::uint32_t glyph)
{
    auto known = m_outlines->byGlyph.find(glyph);
    if (known == m_outlines->byGlyph.end()) {
        Outline loaded = load(glyph);
        m_outlines->pointCount += loaded.points.size() + 1;
        if (m_outlines->pointCount > kMostKeptPoints) {
            m_outlines->byGlyph.clear();
            m_outlines->pointCount = loaded.points.size() + 1;
        }
        known = m_outlines->byGlyph.emplace(glyph, std::move(loaded)).first;
    }
    return known->second.points.empty() ? nullptr : &known->second;
}

GlyphOutlines::Outline GlyphOutlines::load(std::uint32_t glyph)
{
    FT_Face face = freeType();
    if (!FT_IS_SCALABLE(face) || !isComposable(m_face->tables(), glyph))
        return {};
    constexpr FT_Int32 kOutlineOnly = FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP | FT_LOAD_IGNORE_TRANSFORM;
    if (FT_Load_Glyph(face, glyph, kOutlineOnly) != 0 || face->glyph->format != FT_GLYPH_FORMAT_OUTLINE)
        return {};
    const FT_Outline &found = face->glyph->outline;
    if (found.n_points <= 0 || found.n_contours <= 0)
        return {};
    // FreeType's even-odd rule would open holes where contours overlap.
    return {.points = {found.points, found.points + found.n_points},
            .tags = {found.tags, found.tags + found.n_points},
            .contours = {found.contours, found.contours + found.n_contours},
            .flags = found.flags & ~(FT_OUTLINE_OWNER | FT_OUTLINE_EVEN_ODD_FILL)};
}

// The outline in FreeType's units of a pixel, y upwards; nullptr when the glyph has none.
GlyphOutlines::Outline *GlyphOutlines::mapped(std::uint32_t glyph, const Affine &map)
{
    const Outline *const own = outline(glyph);
    if (own == nullptr)
        return nullptr;
    Outline &mapped = m_outlines->mapped;
    mapped = *own;
    for (FT_Vector &point : mapped.points) {
        const Point pixel = map({static_cast<double>(point.x) / kOutlineUnitsPerFontUnit,
                                 static_cast<double>(point.y) / kOutlineUnitsPerFontUnit});
        point = {inFreeTypeUnits(pixel.x), inFreeTypeUnits(-pixel.y)};
    }
    return &mapped;
}

} // namespace kerlune
