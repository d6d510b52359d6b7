#include "Platform/ColorImage.h"

namespace kerlune {

std::optional<ColorImage> ColorImage::create(std::uint32_t width, std::uint32_t height)
{
    if (width == 0 || height == 0 || width > kMostPixelsOfSide || height > kMostPixelsOfSide ||
        std::uint64_t{width} * height > kMostPixels)
        return std::nullopt;
    return ColorImage(width, height);
}

ColorImage::ColorImage(std::uint32_t width, std::uint32_t height)
    : m_width(width)
    , m_height(height)
    , m_pixels(std::size_t{width} * height)
{}

std::span<const Pixel> ColorImage::row(std::uint32_t fromTop) const
{
    return std::span(m_pixels).subspan(std::size_t{fromTop} * m_width, m_width);
}

std::span<Pixel> ColorImage::row(std::uint32_t fromTop)
{
    return std::span(m_pixels).subspan(std::size_t{fromTop} * m_width, m_width);
}

} // namespace kerlune
