#include "Platform/NameTable.h"

#include "Platform/TextEncoding.h"
#include "Support/BigEndian.h"

#include <algorithm>
#include <utility>

namespace kerlune {

namespace {

constexpr std::size_t kMostInVain = 1U << 20; // bytes decoded for one name without finding it

constexpr std::uint16_t kMacintosh = 1;
constexpr std::uint16_t kWindows = 3;

// How early a record is asked: lower first.
int rank(std::uint16_t platform, std::uint16_t language)
{
    if (platform == kWindows && language == 0x0409) // Windows language ID, English (United States)
        return 0;
    if (platform == kMacintosh && language == 0) // Macintosh language ID, English
        return 1;
    return 2;
}

} // namespace

NameTable::NameTable(std::vector<std::uint8_t> table)
    : m_table(std::move(table))
{
    // OpenType 'name': count at 2, storageOffset at 4, records of 12 bytes from 6.
    const std::size_t count = readU16(m_table, 2).value_or(0);
    const std::uint32_t storage = readU16(m_table, 4).value_or(0);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t at = 6 + 12 * i;
        const auto offset = readU16(m_table, at + 10);
        if (!offset)
            break;
        m_records.push_back({*readU16(m_table, at), *readU16(m_table, at + 2), *readU16(m_table, at + 4),
                             *readU16(m_table, at + 6), storage + *offset, *readU16(m_table, at + 8)});
    }
    std::stable_sort(m_records.begin(), m_records.end(), [](const Record &a, const Record &b) {
        return std::pair(a.id, rank(a.platform, a.language)) < std::pair(b.id, rank(b.platform, b.language));
    });
}

std::optional<std::string> NameTable::find(NameId id) const
{
    const auto wanted = static_cast<std::uint16_t>(id);
    auto record = std::lower_bound(m_records.begin(), m_records.end(), wanted,
                                   [](const Record &r, std::uint16_t value) { return r.id < value; });
    std::size_t inVain = 0;
    for (; record != m_records.end() && record->id == wanted && inVain <= kMostInVain; ++record) {
        if (auto text = decode(*record); text && !text->empty())
            return text;
        inVain += record->length;
    }
    return std::nullopt;
}

std::optional<std::string> NameTable::decode(const Record &record) const
{
    const ByteView bytes = slice(m_table, record.offset, record.length);
    if (bytes.size() != record.length)
        return std::nullopt;
    return decodeName(bytes, record.platform, record.encoding, record.language);
}

} // namespace kerlune
