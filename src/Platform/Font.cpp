#include "Platform/Font.h"

#include "Platform/FreeTypeFace.h"
#include "Platform/GlyphLimits.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_ADVANCES_H
#include FT_BBOX_H
#include FT_MULTIPLE_MASTERS_H
#include FT_OUTLINE_H

#include <algorithm>
#include <cmath>
#include <utility>

namespace kerlune {

namespace {

void selectInstance(FT_Face face, const std::vector<AxisValue> &coordinates)
{
    std::vector<FT_Fixed> values;
    values.reserve(coordinates.size());
    for (const AxisValue &coordinate : coordinates)
        values.push_back(static_cast<FT_Fixed>(std::lround(coordinate.value * 65536)));
    if (!values.empty())
        FT_Set_Var_Design_Coordinates(face, static_cast<FT_UInt>(values.size()), values.data());
}

} // namespace

tl::expected<std::unique_ptr<Font>, FontError> Font::create(std::shared_ptr<const FontFace> face, double size)
{
    if (face->unitsPerEm() == 0)
        return tl::unexpected(FontError::NoUnitsPerEm);
    auto freeType = FreeTypeFace::open(face->file(), face->faceIndex(), FreeTypeFace::Offer::Outlines);
    if (!freeType)
        return tl::unexpected(freeType.error());
    selectInstance((*freeType)->face(), face->coordinates());
    if (FT_IS_SCALABLE((*freeType)->face()))
        FT_Set_Pixel_Sizes((*freeType)->face(), face->unitsPerEm(), face->unitsPerEm());
    return std::unique_ptr<Font>(new Font(std::move(face), size, std::move(*freeType)));
}

Font::Font(std::shared_ptr<const FontFace> face, double size, std::unique_ptr<FreeTypeFace> freeType)
    : m_face(std::move(face))
    , m_size(size)
    , m_characters(m_face->characterMap())
    , m_freeType(std::move(freeType))
{}

Font::~Font() = default;

bool Font::loadOutline(std::uint32_t glyph) const
{
    if (m_loaded == glyph)
        return true;
    m_loaded.reset();
    FT_Face face = m_freeType->face();
    constexpr FT_Int32 kOutlineOnly = FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP | FT_LOAD_IGNORE_TRANSFORM;
    const bool isLoaded = FT_IS_SCALABLE(face) && isComposable(m_face->tables(), glyph) &&
                          FT_Load_Glyph(face, glyph, kOutlineOnly) == 0 &&
                          face->glyph->format == FT_GLYPH_FORMAT_OUTLINE && face->glyph->outline.n_points > 0;
    if (isLoaded)
        m_loaded = glyph;
    return isLoaded;
}

double Font::advance(std::uint32_t glyph) const
{
    FT_Face face = m_freeType->face();
    constexpr FT_Int32 kInFontUnits = FT_LOAD_NO_SCALE;
    m_loaded.reset(); // FreeType may load the glyph for it
    FT_Fixed advance = 0;
    if (!FT_IS_SCALABLE(face) || FT_Get_Advance(face, glyph, kInFontUnits, &advance) != 0)
        return 0;
    return static_cast<double>(advance) * m_size / m_face->unitsPerEm();
}

std::optional<GlyphBox> Font::boundingBox(std::uint32_t glyph) const
{
    FT_BBox box{};
    if (!loadOutline(glyph) || FT_Outline_Get_BBox(&m_freeType->face()->glyph->outline, &box) != 0)
        return std::nullopt;
    const double points = m_size / m_face->unitsPerEm() / kOutlineUnitsPerFontUnit;
    return GlyphBox{static_cast<double>(box.xMin) * points, static_cast<double>(box.yMin) * points,
                    static_cast<double>(box.xMax - box.xMin) * points,
                    static_cast<double>(box.yMax - box.yMin) * points};
}

bool Font::draw(std::uint32_t glyph, const GlyphPlacement &placement, CoverageImage &image) const
{
    if (!loadOutline(glyph))
        return false;
    FT_Outline outline = m_freeType->face()->glyph->outline; // with points of its own: the slot keeps the glyph
    std::vector<FT_Vector> points(outline.points, outline.points + outline.n_points);
    outline.points = points.data();
    outline.flags &= ~FT_OUTLINE_EVEN_ODD_FILL; // it would open holes where contours overlap
    const double scale = placement.scale * m_size / m_face->unitsPerEm() / kOutlineUnitsPerFontUnit;
    const auto place = [scale](FT_Pos position, double offset) {
        const double pixels =
            std::clamp(static_cast<double>(position) * scale + offset, -kFurthestPixel, kFurthestPixel);
        return static_cast<FT_Pos>(std::lround(pixels * 64)); // 26.6
    };
    for (FT_Vector &point : points)
        point = {place(point.x, placement.x), place(point.y, placement.y)};

    FT_Bitmap bitmap{};
    bitmap.width = image.width();
    bitmap.rows = image.height();
    bitmap.pitch = static_cast<int>(image.width()); // positive: the first row is the top one
    bitmap.buffer = image.pixels().data();
    bitmap.num_grays = 256;
    bitmap.pixel_mode = FT_PIXEL_MODE_GRAY;
    return FT_Outline_Get_Bitmap(m_freeType->library(), &outline, &bitmap) == 0;
}

} // namespace kerlune
