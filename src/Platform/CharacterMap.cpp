#include "Platform/CharacterMap.h"

#include "Platform/FaceTables.h"
#include "Platform/TextEncoding.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <optional>
#include <utility>

namespace kerlune {

namespace {

constexpr std::size_t kMostSubtableBytes = 16U << 20;
constexpr std::size_t kMostEncodingRecords = 4096;
constexpr std::uint64_t kCodePoints = 0x110000;

struct EncodingRecord {
    std::uint16_t platform;
    std::uint16_t encoding;
    std::uint32_t offset;
};

std::vector<EncodingRecord> readEncodingRecords(const FaceTables &tables)
{
    // OpenType 'cmap': numTables at 2, records of 8 bytes from 4.
    const auto header = tables.read(tag("cmap"), 4);
    const std::size_t count = std::min<std::size_t>(readU16(header, 2).value_or(0), kMostEncodingRecords);
    const auto bytes = tables.read(tag("cmap"), 4 + 8 * count);
    std::vector<EncodingRecord> records;
    for (std::size_t at = 4; at + 8 <= bytes.size(); at += 8)
        records.push_back({*readU16(bytes, at), *readU16(bytes, at + 2), *readU32(bytes, at + 4)});
    return records;
}

bool isSupported(std::uint16_t format)
{
    return format == 0 || format == 4 || format == 6 || format == 10 || format == 12 || format == 13;
}

// The subtable's bytes; empty when its format is not read.
std::vector<std::uint8_t> readSubtable(const FaceTables &tables, std::uint32_t offset)
{
    const auto start = tables.readRange(tag("cmap"), offset, 8);
    const auto format = readU16(start, 0);
    if (!format || !isSupported(*format))
        return {};
    const std::size_t available = tables.length(tag("cmap")) - offset;
    // Formats up to 6 have a 16-bit length, which format 4 overflows in some large fonts: there the rest is taken.
    std::size_t length = available;
    if (*format >= 10)
        length = *readU32(start, 4);
    else if (*format != 4)
        length = *readU16(start, 2);
    return tables.readRange(tag("cmap"), offset, std::min({length, available, kMostSubtableBytes}));
}

} // namespace

CharacterMap CharacterMap::read(const FaceTables &tables)
{
    static constexpr std::array<std::pair<std::uint16_t, std::uint16_t>, 8> kUnicode{
        {{3, 10}, {0, 6}, {0, 4}, {3, 1}, {0, 3}, {0, 2}, {0, 1}, {0, 0}}};

    const auto records = readEncodingRecords(tables);
    const auto find = [&](std::uint16_t platform, std::uint16_t encoding) -> const EncodingRecord * {
        const auto found = std::find_if(records.begin(), records.end(), [&](const EncodingRecord &r) {
            return r.platform == platform && r.encoding == encoding;
        });
        return found == records.end() ? nullptr : &*found;
    };

    for (const auto &[platform, encoding] : kUnicode) {
        const EncodingRecord *record = find(platform, encoding);
        if (record == nullptr)
            continue;
        if (auto subtable = readSubtable(tables, record->offset); !subtable.empty())
            return {std::move(subtable), Encoding::Unicode};
    }
    if (const EncodingRecord *roman = find(1, 0); roman != nullptr && find(3, 0) == nullptr)
        return {readSubtable(tables, roman->offset), Encoding::MacRoman};
    return {};
}

CharacterMap::CharacterMap(std::vector<std::uint8_t> subtable, Encoding encoding)
    : m_subtable(std::move(subtable))
    , m_encoding(encoding)
    , m_format(readU16(m_subtable, 0).value_or(0))
{
    if (m_format == 4)
        m_count = std::min<std::size_t>(readU16(m_subtable, 6).value_or(0) / 2, m_subtable.size() / 8);
    else if (m_format >= 12)
        m_count = std::min<std::size_t>(readU32(m_subtable, 12).value_or(0), m_subtable.size() / 12);
    sortRanges();
}

std::size_t CharacterMap::byteCount() const
{
    return sizeof(*this) + m_subtable.capacity() + m_order.capacity() * sizeof(m_order.front());
}

std::uint32_t CharacterMap::glyph(char32_t character) const
{
    if (m_encoding == Encoding::Unicode)
        return lookUp(character);
    const auto byte = macRomanByte(character);
    return byte ? lookUp(*byte) : 0;
}

std::uint32_t CharacterMap::lookUp(std::uint32_t code) const
{
    switch (m_format) {
    case 0: // Byte encoding table: glyphIdArray[256] at 6
        return code < 256 && 6 + code < m_subtable.size() ? m_subtable[6 + code] : 0;
    case 4:
        return code <= 0xFFFF ? lookUpRanges(code) : 0;
    case 6: { // Trimmed table mapping: firstCode at 6, entryCount at 8, glyphIdArray at 10
        const std::uint32_t first = readU16(m_subtable, 6).value_or(0);
        const std::uint32_t count = readU16(m_subtable, 8).value_or(0);
        return code >= first && code - first < count
                   ? readU16(m_subtable, 10 + 2 * std::size_t{code - first}).value_or(0)
                   : 0;
    }
    case 10: { // Trimmed array: startCharCode at 12, numChars at 16, glyphs at 20
        const std::uint32_t first = readU32(m_subtable, 12).value_or(0);
        const std::uint32_t count = readU32(m_subtable, 16).value_or(0);
        if (code < first || code - first >= count)
            return 0;
        return readU16(m_subtable, 20 + 2 * std::size_t{code - first}).value_or(0);
    }
    default:
        return lookUpRanges(code);
    }
}

std::uint32_t CharacterMap::lookUpRanges(std::uint32_t code) const
{
    std::size_t first = 0;
    for (std::size_t remaining = m_count; remaining > 0;) {
        const std::size_t half = remaining / 2;
        if (rangeEnd(rangeInOrder(first + half)) < code) {
            first += half + 1;
            remaining -= half + 1;
        } else {
            remaining = half;
        }
    }
    return first < m_count ? glyphInRange(rangeInOrder(first), code) : 0;
}

std::uint32_t CharacterMap::rangeStart(std::size_t range) const
{
    if (m_format == 4) // startCode, behind the end codes and two bytes of padding
        return readU16(m_subtable, 16 + 2 * m_count + 2 * range).value_or(0);
    return readU32(m_subtable, 16 + 12 * range).value_or(0);
}

std::uint32_t CharacterMap::rangeEnd(std::size_t range) const
{
    if (m_format == 4)
        return readU16(m_subtable, 14 + 2 * range).value_or(0);
    return readU32(m_subtable, 16 + 12 * range + 4).value_or(0);
}

std::uint32_t CharacterMap::glyphInRange(std::size_t range, std::uint32_t code) const
{
    return m_format == 4 ? glyphInSegment(range, code) : glyphInGroup(range, code);
}

// Format 4, segment mapping to delta values: endCode from 14, startCode, idDelta and idRangeOffset behind it.
std::uint32_t CharacterMap::glyphInSegment(std::size_t segment, std::uint32_t code) const
{
    const std::size_t endCode = 14 + 2 * segment;
    const std::size_t startCode = endCode + 2 + 2 * m_count;
    const std::size_t idDelta = startCode + 2 * m_count;
    const std::size_t idRangeOffset = idDelta + 2 * m_count;
    const auto end = readU16(m_subtable, endCode);
    const auto start = readU16(m_subtable, startCode);
    const auto delta = readU16(m_subtable, idDelta);
    const auto rangeOffset = readU16(m_subtable, idRangeOffset);
    if (!rangeOffset || code < *start || code > *end)
        return 0;
    if (*rangeOffset == 0)
        return (code + *delta) & 0xFFFF;
    const std::uint32_t entry =
        readU16(m_subtable, idRangeOffset + *rangeOffset + 2 * std::size_t{code - *start}).value_or(0);
    return entry == 0 ? 0 : (entry + *delta) & 0xFFFF;
}

// Formats 12 and 13: groups of startCharCode, endCharCode, glyph from 16.
std::uint32_t CharacterMap::glyphInGroup(std::size_t group, std::uint32_t code) const
{
    const std::size_t at = 16 + 12 * group;
    const auto start = readU32(m_subtable, at);
    const auto end = readU32(m_subtable, at + 4);
    const auto glyph = readU32(m_subtable, at + 8);
    if (!glyph || code < *start || code > *end)
        return 0;
    return m_format == 13 ? *glyph : *glyph + (code - *start);
}

std::vector<CharacterMap::Entry> CharacterMap::entries() const
{
    std::vector<Entry> entries;
    if (m_encoding == Encoding::MacRoman) {
        for (char32_t character = 0; character <= 0xFFFF; ++character) {
            if (const std::uint32_t mapped = glyph(character); mapped != 0)
                entries.push_back({character, mapped});
        }
        return entries;
    }
    visitCodes([&entries](std::uint32_t code, std::uint32_t mapped) {
        const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
        if (mapped != 0 && !isSurrogate)
            entries.push_back({code, mapped});
    });
    return entries;
}

template <typename Visit>
void CharacterMap::visitCodes(Visit visit) const
{
    std::uint64_t first = 0;
    std::uint64_t count = 0;
    if (m_format == 0) {
        count = 256;
    } else if (m_format == 6) {
        first = readU16(m_subtable, 6).value_or(0);
        count = readU16(m_subtable, 8).value_or(0);
    } else if (m_format == 10) {
        first = readU32(m_subtable, 12).value_or(0);
        count = readU32(m_subtable, 16).value_or(0);
    } else {
        return visitRanges(visit);
    }
    const std::uint64_t last = std::min<std::uint64_t>(first + count, kCodePoints);
    for (std::uint64_t code = first; code < last; ++code)
        visit(static_cast<std::uint32_t>(code), lookUp(static_cast<std::uint32_t>(code)));
}

// Ranges may overlap: as in a look-up, a code belongs to the first range that ends at it or behind it. So every code is
// visited once at most, whatever the table says.
template <typename Visit>
void CharacterMap::visitRanges(Visit visit) const
{
    std::uint64_t next = 0;
    for (std::size_t position = 0; position < m_count && next < kCodePoints; ++position) {
        const std::size_t range = rangeInOrder(position);
        const std::uint64_t end = rangeEnd(range);
        const std::uint64_t last = std::min<std::uint64_t>(end, kCodePoints - 1);
        for (std::uint64_t code = std::max<std::uint64_t>(next, rangeStart(range)); code <= last; ++code)
            visit(static_cast<std::uint32_t>(code), glyphInRange(range, static_cast<std::uint32_t>(code)));
        next = std::max(next, end + 1);
    }
}

void CharacterMap::sortRanges()
{
    const auto endsBefore = [this](std::size_t a, std::size_t b) { return rangeEnd(a) < rangeEnd(b); };
    bool isSorted = true;
    for (std::size_t range = 1; isSorted && range < m_count; ++range)
        isSorted = !endsBefore(range, range - 1);
    if (isSorted)
        return;
    m_order.resize(m_count);
    std::iota(m_order.begin(), m_order.end(), 0U);
    std::stable_sort(m_order.begin(), m_order.end(), endsBefore);
}

} // namespace kerlune
