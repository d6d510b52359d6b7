#pragma once

#include "Platform/ColorImage.h"

#include <cstdint>
#include <vector>

struct FT_FaceRec_;

namespace kerlune {

// The first palette of a face (OpenType 'CPAL').
class Palette final {
public:
    static constexpr std::uint32_t kTextColorIndex = 0xFFFF; // OpenType 'COLR': the foreground colour

    explicit Palette(FT_FaceRec_ *face);

    Color color(std::uint32_t index, const Color &textColor) const; // transparent when there is no such entry

private:
    std::vector<Color> m_colors;
};

} // namespace kerlune
