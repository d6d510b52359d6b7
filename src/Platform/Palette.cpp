#include "Platform/Palette.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_COLOR_H

#include <span>

namespace kerlune {

Palette::Palette(FT_Face face)
{
    FT_Palette_Data data{};
    FT_Color *colors = nullptr;
    if (FT_Palette_Data_Get(face, &data) != 0 || data.num_palettes == 0 || FT_Palette_Select(face, 0, &colors) != 0 ||
        colors == nullptr)
        return;
    for (const FT_Color &color : std::span(colors, data.num_palette_entries))
        m_colors.push_back({color.red, color.green, color.blue, color.alpha});
}

Color Palette::color(std::uint32_t index, const Color &textColor) const
{
    if (index == kTextColorIndex)
        return textColor;
    return index < m_colors.size() ? m_colors[index] : Color{.alpha = 0};
}

} // namespace kerlune
