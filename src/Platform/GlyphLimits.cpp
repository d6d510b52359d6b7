#include "Platform/GlyphLimits.h"

#include "Platform/FaceTables.h"
#include "Support/BigEndian.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

namespace kerlune {

namespace {

constexpr unsigned kMostLevels = 64;
constexpr std::uint64_t kMostNodes = 16'384;
constexpr std::size_t kMostComponentBytes = 64U << 10;

// OpenType 'glyf', Component Glyph flags.
constexpr std::uint16_t kArgumentsAreWords = 0x0001;
constexpr std::uint16_t kHasScale = 0x0008;
constexpr std::uint16_t kMoreComponents = 0x0020;
constexpr std::uint16_t kHasTwoScales = 0x0040;
constexpr std::uint16_t kHasTwoByTwo = 0x0080;

class ComponentTree final {
public:
    explicit ComponentTree(const FaceTables &tables)
        : m_tables(tables)
        , m_hasLongOffsets(readI16(tables.readRange(tag("head"), 50, 2), 0).value_or(0) != 0) // head.indexToLocFormat
    {}

    bool isWithinLimits(std::uint32_t glyph)
    {
        const Size size = measure(glyph, 1);
        return size.nodes <= kMostNodes && size.levels <= kMostLevels;
    }

private:
    struct Size {
        std::uint64_t nodes;
        unsigned levels;
    };
    static constexpr Size kTooLarge{kMostNodes + 1, kMostLevels + 1};

    // The tree below a glyph, itself included.
    Size measure(std::uint32_t glyph, unsigned level)
    {
        if (level > kMostLevels)
            return kTooLarge;
        if (const auto known = m_sizes.find(glyph); known != m_sizes.end())
            return known->second;
        m_sizes[glyph] = kTooLarge; // what a glyph sees that contains itself
        Size size{1, 1};
        for (const std::uint32_t component : components(glyph)) {
            const Size below = measure(component, level + 1);
            size = {size.nodes + below.nodes, std::max(size.levels, below.levels + 1)};
            if (size.nodes > kMostNodes)
                break;
        }
        m_sizes[glyph] = size;
        return size;
    }

    std::vector<std::uint32_t> components(std::uint32_t glyph) const
    {
        std::vector<std::uint32_t> found;
        const std::vector<std::uint8_t> bytes = glyphBytes(glyph);
        if (readI16(bytes, 0).value_or(0) >= 0) // numberOfContours: negative for a composite glyph
            return found;
        std::size_t at = 10;
        for (;;) {
            const auto flags = readU16(bytes, at);
            const auto index = readU16(bytes, at + 2);
            if (!index)
                return found;
            found.push_back(*index);
            at += (*flags & kArgumentsAreWords) != 0 ? 8 : 6;
            if ((*flags & kHasScale) != 0)
                at += 2;
            else if ((*flags & kHasTwoScales) != 0)
                at += 4;
            else if ((*flags & kHasTwoByTwo) != 0)
                at += 8;
            if ((*flags & kMoreComponents) == 0)
                return found;
        }
    }

    std::vector<std::uint8_t> glyphBytes(std::uint32_t glyph) const
    {
        const std::size_t width = m_hasLongOffsets ? 4 : 2;
        const auto location = m_tables.readRange(tag("loca"), std::size_t{glyph} * width, 2 * width);
        if (location.empty())
            return {};
        const auto offset = [&](std::size_t i) -> std::size_t {
            return m_hasLongOffsets ? *readU32(location, 4 * i) : std::size_t{*readU16(location, 2 * i)} * 2;
        };
        const std::size_t start = offset(0);
        const std::size_t end = std::min(offset(1), m_tables.length(tag("glyf")));
        if (start >= end)
            return {};
        // A simple glyph is told by its first two bytes; only a composite one is read further.
        const auto contours = m_tables.readRange(tag("glyf"), start, std::min<std::size_t>(end - start, 2));
        if (readI16(contours, 0).value_or(0) >= 0)
            return {};
        return m_tables.readRange(tag("glyf"), start, std::min(end - start, kMostComponentBytes));
    }

    const FaceTables &m_tables;
    bool m_hasLongOffsets;
    std::unordered_map<std::uint32_t, Size> m_sizes;
};

} // namespace

bool isComposable(const FaceTables &tables, std::uint32_t glyph)
{
    return !tables.has(tag("glyf")) || ComponentTree(tables).isWithinLimits(glyph);
}

} // namespace kerlune
