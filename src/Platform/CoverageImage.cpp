#include "Platform/CoverageImage.h"

namespace kerlune {

std::optional<CoverageImage> CoverageImage::create(std::uint32_t width, std::uint32_t height)
{
    if (width == 0 || height == 0 || std::uint64_t{width} * height > kMostPixels)
        return std::nullopt;
    return CoverageImage(width, height);
}

CoverageImage::CoverageImage(std::uint32_t width, std::uint32_t height)
    : m_width(width)
    , m_height(height)
    , m_pixels(std::size_t{width} * height)
{}

std::span<const std::uint8_t> CoverageImage::row(std::uint32_t fromTop) const
{
    return std::span(m_pixels).subspan(std::size_t{fromTop} * m_width, m_width);
}

} // namespace kerlune
