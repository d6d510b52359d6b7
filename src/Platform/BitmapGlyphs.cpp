#include "Platform/BitmapGlyphs.h"

#include "Platform/FreeTypeFace.h"
#include "Platform/GlyphLimits.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <array>
#include <cmath>
#include <span>
#include <utility>
#include <vector>

namespace kerlune {

namespace {

// One dimension of a picture on the image.
struct Stretch {
    double start; // pixels of the image
    double scale; // pixels of the image to one of the picture
    int length;   // of the picture

    // Half the width of the tent that weights the picture's pixels around a pixel of the image.
    double radius() const { return std::max(1.0, 1 / scale); }
    // The pixels of the image that the picture's pixels from `first` on, before `last`, touch.
    int firstTouched(int first) const
    {
        return rounded(std::floor(start + scale * (first - radius() + 0.5) - 0.5) + 1);
    }
    int endTouched(int last) const { return rounded(std::ceil(start + scale * (last - 1 + radius() + 0.5) - 0.5)); }

private:
    static int rounded(double pixel) { return static_cast<int>(std::clamp(pixel, -kFurthestPixel, kFurthestPixel)); }
};

struct Weights {
    int first = 0; // pixel of the picture
    std::vector<float> factors = {};
};

Weights weightsAt(const Stretch &stretch, int pixel)
{
    const double centre = (pixel + 0.5 - stretch.start) / stretch.scale - 0.5;
    const double radius = stretch.radius();
    const int first = static_cast<int>(std::floor(centre - radius)) + 1;
    const int last = static_cast<int>(std::ceil(centre + radius)) - 1;
    double sum = 0; // of what lies beside the picture too: its edge fades
    Weights weights{.first = std::max(first, 0)};
    for (int i = first; i <= last; ++i) {
        const double factor = 1 - std::abs(i - centre) / radius;
        sum += factor;
        if (i >= 0 && i < stretch.length)
            weights.factors.push_back(static_cast<float>(factor));
    }
    for (float &factor : weights.factors)
        factor /= static_cast<float>(sum);
    return weights;
}

using Channels = std::array<float, 4>; // blue, green, red, alpha

Pixel toPixel(const Channels &channels)
{
    const auto byte = [](float value) { return static_cast<Pixel>(std::lround(std::clamp(value, 0.0F, 255.0F))); };
    const Pixel alpha = byte(channels[3]);
    return (alpha << 24) | (std::min(byte(channels[2]), alpha) << 16) | (std::min(byte(channels[1]), alpha) << 8) |
           std::min(byte(channels[0]), alpha);
}

} // namespace

struct BitmapGlyphs::Picture {
    std::span<const std::uint8_t> row(int fromTop) const
    {
        return {bitmap.buffer + static_cast<std::ptrdiff_t>(fromTop) * bitmap.pitch, 4 * std::size_t{bitmap.width}};
    }

    FT_Bitmap bitmap; // premultiplied; FreeType's, until it loads another glyph
    Stretch columns;
    Stretch rows;
};

BitmapGlyphs::BitmapGlyphs(std::shared_ptr<const FontFace> face)
    : m_face(std::move(face))
{
    if (!m_face->tables().has(tag("CBDT")) && !m_face->tables().has(tag("sbix")))
        return;
    auto freeType = FreeTypeFace::open(m_face->file(), m_face->faceIndex(), FreeTypeFace::Offer::Pictures);
    if (freeType && FT_HAS_FIXED_SIZES((*freeType)->face()))
        m_freeType = std::move(*freeType);
}

BitmapGlyphs::~BitmapGlyphs() = default;

std::optional<BitmapGlyphs::Picture> BitmapGlyphs::load(std::uint32_t glyph, const Affine &map) const
{
    const double size = map.xx * m_face->unitsPerEm(); // of the em, in pixels
    if (!m_freeType || !(size > 0))
        return std::nullopt;
    FT_Face face = m_freeType->face();
    int strike = 0;
    const auto strikeSize = [&](int i) { return static_cast<double>(face->available_sizes[i].y_ppem) / 64; };
    for (int i = 1; i < face->num_fixed_sizes; ++i) {
        const bool isLargeEnough = strikeSize(strike) >= size;
        if (isLargeEnough ? strikeSize(i) >= size && strikeSize(i) < strikeSize(strike)
                          : strikeSize(i) > strikeSize(strike))
            strike = i;
    }
    // FreeType goes on to the outline when the strike lacks the glyph.
    if (!(strikeSize(strike) > 0) || FT_Select_Size(face, strike) != 0 || !isComposable(m_face->tables(), glyph) ||
        FT_Load_Glyph(face, glyph, FT_LOAD_COLOR | FT_LOAD_NO_HINTING) != 0)
        return std::nullopt;
    const FT_GlyphSlotRec *const slot = face->glyph;
    if (slot->format != FT_GLYPH_FORMAT_BITMAP || slot->bitmap.pixel_mode != FT_PIXEL_MODE_BGRA ||
        slot->bitmap.width == 0 || slot->bitmap.rows == 0 || slot->bitmap.pitch <= 0)
        return std::nullopt;
    const double scale = size / strikeSize(strike);
    return Picture{slot->bitmap,
                   {map.dx + scale * slot->bitmap_left, scale, static_cast<int>(slot->bitmap.width)},
                   {map.dy - scale * slot->bitmap_top, scale, static_cast<int>(slot->bitmap.rows)}};
}

std::optional<PixelBox> BitmapGlyphs::inkBox(std::uint32_t glyph, const Affine &map) const
{
    const auto picture = load(glyph, map);
    if (!picture)
        return std::nullopt;
    PixelArea inked;
    for (int y = 0; y < picture->rows.length; ++y) {
        const auto row = picture->row(y);
        const auto isInked = [&](int x) { return row[4 * static_cast<std::size_t>(x) + 3] != 0; };
        int left = 0;
        int right = picture->columns.length;
        while (left < right && !isInked(left))
            ++left;
        while (left < right && !isInked(right - 1))
            --right;
        inked = inked.united({left, y, right, y + 1});
    }
    if (inked.isEmpty())
        return PixelBox{};
    return PixelBox{static_cast<double>(picture->columns.firstTouched(inked.left)),
                    static_cast<double>(picture->rows.firstTouched(inked.top)),
                    static_cast<double>(picture->columns.endTouched(inked.right)),
                    static_cast<double>(picture->rows.endTouched(inked.bottom))};
}

GlyphInk BitmapGlyphs::draw(std::uint32_t glyph, const Affine &map, ColorImage &image) const
{
    const auto picture = load(glyph, map);
    if (!picture)
        return GlyphInk::NoForm;
    const auto &[bitmap, columns, rows] = *picture;
    const int left = std::max(columns.firstTouched(0), 0);
    const int right = std::min(columns.endTouched(columns.length), static_cast<int>(image.width()));
    const int bottom = std::min(rows.endTouched(rows.length), static_cast<int>(image.height()));
    if (left >= right)
        return GlyphInk::Blank;
    std::vector<Weights> across;
    for (int x = left; x < right; ++x)
        across.push_back(weightsAt(columns, x));
    GlyphInk ink = GlyphInk::Blank;
    std::vector<Channels> line(bitmap.width); // the rows of the picture around one of the image, weighted
    for (int y = std::max(rows.firstTouched(0), 0); y < bottom; ++y) {
        std::fill(line.begin(), line.end(), Channels{});
        const Weights down = weightsAt(rows, y);
        for (std::size_t i = 0; i < down.factors.size(); ++i) {
            const auto source = picture->row(down.first + static_cast<int>(i));
            for (std::size_t byte = 0; byte < source.size(); ++byte)
                line[byte / 4][byte % 4] += down.factors[i] * static_cast<float>(source[byte]);
        }
        const auto target = image.row(static_cast<std::uint32_t>(y)).subspan(static_cast<std::size_t>(left));
        for (std::size_t x = 0; x < across.size(); ++x) {
            Channels sum{};
            for (std::size_t i = 0; i < across[x].factors.size(); ++i) {
                const Channels &source = line[static_cast<std::size_t>(across[x].first) + i];
                for (std::size_t channel = 0; channel < 4; ++channel)
                    sum[channel] += across[x].factors[i] * source[channel];
            }
            const Pixel pixel = toPixel(sum);
            target[x] = over(pixel, target[x]);
            if (pixel != 0)
                ink = GlyphInk::Inked;
        }
    }
    return ink;
}

} // namespace kerlune
