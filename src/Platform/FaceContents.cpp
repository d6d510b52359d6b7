#include "Platform/FaceContents.h"

#include "Platform/GlyphOutlines.h"
#include "Platform/TextShaping.h"
#include "Support/Handle.h"

#include <hb-ot.h>
#include <hb.h>
#include <unicode/uchar.h>

#include <algorithm>
#include <array>

namespace kerlune {

std::vector<CharacterMap::Entry> readCharacters(const FontFace &face)
{
    auto entries = face.characterMap().entries();
    std::erase_if(entries, [count = face.glyphCount()](const auto &entry) { return entry.glyph >= count; });
    return entries;
}

namespace {

double advanceOf(const FontFace &face, std::uint32_t glyph, const std::vector<AxisValue> &coordinates)
{
    constexpr int kUnitsPerFontUnit = 64; // variations keep their fractions
    const Handle<hb_font_t, hb_font_destroy> font(hb_font_create(face.harfBuzz()));
    const int scale = static_cast<int>(face.unitsPerEm()) * kUnitsPerFontUnit;
    hb_font_set_scale(font.get(), scale, scale);
    std::vector<hb_variation_t> variations;
    variations.reserve(coordinates.size());
    for (const AxisValue &coordinate : coordinates)
        variations.push_back({coordinate.axis, static_cast<float>(coordinate.value)});
    hb_font_set_variations(font.get(), variations.data(), static_cast<unsigned>(variations.size()));
    return 1.0 * hb_font_get_glyph_h_advance(font.get(), glyph) / kUnitsPerFontUnit;
}

} // namespace

GlyphMeasures measureGlyph(const std::shared_ptr<const FontFace> &face, std::uint32_t glyph,
                           const std::vector<AxisValue> &coordinates)
{
    if (face->unitsPerEm() == 0 || glyph >= face->glyphCount())
        return {};
    // Shaping knows which place these coordinates mean.
    const auto place = shape(face, {}, {.size = 1, .coordinates = coordinates}).coordinates;
    GlyphMeasures measures{.advance = advanceOf(*face, glyph, place), .bounds = {}};
    const auto outlines = GlyphOutlines::open(face);
    if (!outlines)
        return measures;
    if (!place.empty())
        (*outlines)->moveTo(place);
    if (const auto box = (*outlines)->boundingBox(glyph, Affine{.yy = -1}))
        measures.bounds = {box->left, -box->bottom, box->right, -box->top};
    return measures;
}

bool isGraphic(char32_t character)
{
    return u_isgraph(static_cast<UChar32>(character)) != 0;
}

std::string characterName(char32_t character)
{
    std::array<char, 256> name{};
    UErrorCode error = U_ZERO_ERROR;
    const auto length = u_charName(static_cast<UChar32>(character), U_EXTENDED_CHAR_NAME, name.data(),
                                   static_cast<int32_t>(name.size()), &error);
    if (U_FAILURE(error) != 0 || length <= 0)
        return {};
    std::string text(name.data(), static_cast<std::size_t>(std::min<int32_t>(length, name.size())));
    if (text.size() > 2 && text.front() == '<' && text.back() == '>') // what stands for a name is in angle brackets
        text = text.substr(1, text.size() - 2);
    return text;
}

} // namespace kerlune
