#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace kerlune {

// A colour of sRGB, not premultiplied.
struct Color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 255;

    bool operator==(const Color &) const = default;
};

// A pixel: 0xAARRGGBB as a number, the colours multiplied by alpha.
using Pixel = std::uint32_t;

// Every channel times factor / 255, rounded.
constexpr Pixel scaled(Pixel pixel, std::uint32_t factor)
{
    const auto twoChannels = [factor](std::uint32_t channels) {
        const std::uint32_t product = channels * factor + 0x00800080;
        return ((product + ((product >> 8) & 0x00FF00FF)) >> 8) & 0x00FF00FF;
    };
    return twoChannels(pixel & 0x00FF00FF) | (twoChannels((pixel >> 8) & 0x00FF00FF) << 8);
}

constexpr Pixel over(Pixel source, Pixel backdrop)
{
    return source + scaled(backdrop, 255 - (source >> 24));
}

constexpr Pixel premultiplied(const Color &color)
{
    const auto opaque = 0xFF000000 | (Pixel{color.red} << 16) | (Pixel{color.green} << 8) | Pixel{color.blue};
    return scaled(opaque, color.alpha);
}

// An image of premultiplied colours. Rows from top to bottom.
class ColorImage final {
public:
    static constexpr std::uint64_t kMostPixels = 16'000'000;
    static constexpr std::uint32_t kMostPixelsOfSide = 32'767; // what FreeType's rasteriser counts to

    // All pixels transparent. Absent when it would have no pixel or more than these.
    static std::optional<ColorImage> create(std::uint32_t width, std::uint32_t height);

    std::uint32_t width() const { return m_width; }
    std::uint32_t height() const { return m_height; }
    std::span<const Pixel> row(std::uint32_t fromTop) const;
    std::span<Pixel> row(std::uint32_t fromTop);
    std::span<const Pixel> pixels() const { return m_pixels; }

private:
    ColorImage(std::uint32_t width, std::uint32_t height);

    std::uint32_t m_width;
    std::uint32_t m_height;
    std::vector<Pixel> m_pixels;
};

} // namespace kerlune
