#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace kerlune {

// An image of 8-bit coverage: 0 outside the outline, 255 inside. Rows from top to bottom.
class CoverageImage final {
public:
    static constexpr std::uint64_t kMostPixels = 16'000'000;

    // All pixels 0. Absent when it would have no pixel or more than kMostPixels.
    static std::optional<CoverageImage> create(std::uint32_t width, std::uint32_t height);

    std::uint32_t width() const { return m_width; }
    std::uint32_t height() const { return m_height; }
    std::span<const std::uint8_t> row(std::uint32_t fromTop) const;
    std::span<std::uint8_t> pixels() { return m_pixels; }

private:
    CoverageImage(std::uint32_t width, std::uint32_t height);

    std::uint32_t m_width;
    std::uint32_t m_height;
    std::vector<std::uint8_t> m_pixels;
};

} // namespace kerlune
