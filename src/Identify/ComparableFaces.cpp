#include "Identify/ComparableFaces.h"

#include "Support/ParallelFor.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace kerlune {

ComparableFaces::ComparableFaces(const std::vector<FontRecordPointer> &records, const FingerprintMatrix &vectors)
    : m_records(records)
{
    std::vector<std::optional<std::span<const float>>> found(records.size());
    parallelForRanges(records.size(), [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i != last; ++i)
            found[i] = vectors.find(records[i]->postScriptName);
    });

    std::unordered_map<std::string_view, std::uint32_t> families;
    m_faces.reserve(records.size());
    for (std::size_t i = 0; i < records.size(); ++i) {
        if (!found[i])
            continue;
        const FontRecord &record = *records[i];
        const auto family = families.try_emplace(record.family, static_cast<std::uint32_t>(families.size())).first;
        m_faces.push_back(
            {*found[i], record.scriptMask, static_cast<std::uint32_t>(i), family->second, record.isMonospace});
    }
    m_familyCount = families.size();
    std::sort(m_faces.begin(), m_faces.end(), [](const Face &a, const Face &b) {
        return std::pair(a.vector.data(), a.record) < std::pair(b.vector.data(), b.record);
    });
}

const ComparableFaces::Face *ComparableFaces::find(const std::string &postScriptName,
                                                   std::span<const float> vector) const
{
    const auto face = std::find_if(m_faces.begin(), m_faces.end(), [&](const Face &each) {
        return each.vector.data() == vector.data() && m_records[each.record]->postScriptName == postScriptName;
    });
    return face == m_faces.end() ? nullptr : &*face;
}

} // namespace kerlune
