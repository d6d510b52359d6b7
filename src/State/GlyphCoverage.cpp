#include "State/GlyphCoverage.h"

#include "Platform/FaceOpening.h"
#include "Support/ParallelFor.h"

#include <algorithm>

namespace kerlune {

namespace {

constexpr std::size_t kMostBytes = 64U << 20;

std::shared_ptr<const CharacterMap> readMap(const FontRecord &record)
{
    const auto face = openFace(record.filePath, record.postScriptName);
    return face ? std::make_shared<const CharacterMap>((*face)->characterMap()) : nullptr;
}

} // namespace

std::vector<FontFamilyPointer> GlyphCoverage::familiesWith(std::u32string_view characters,
                                                           const std::vector<FontFamilyPointer> &families)
{
    std::vector<char> isCovered(families.size()); // char: threads write neighbours
    parallelForRanges(families.size(), [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i != last; ++i) {
            const Map map = characterMap(*families[i]->representative());
            const bool hasAll =
                map != nullptr && std::all_of(characters.begin(), characters.end(),
                                              [&](char32_t character) { return map->contains(character); });
            isCovered[i] = hasAll ? 1 : 0;
        }
    });
    std::vector<FontFamilyPointer> covered;
    for (std::size_t i = 0; i < families.size(); ++i) {
        if (isCovered[i] != 0)
            covered.push_back(families[i]);
    }
    return covered;
}

void GlyphCoverage::clear()
{
    const std::lock_guard lock(m_mutex);
    m_entries.clear();
    m_bytes = 0;
}

void GlyphCoverage::stopReading()
{
    m_isStopped = true;
}

GlyphCoverage::Map GlyphCoverage::characterMap(const FontRecord &face)
{
    {
        const std::lock_guard lock(m_mutex);
        const auto known = m_entries.find(face.postScriptName);
        if (known != m_entries.end() && known->second.path == face.filePath && known->second.mtime == face.mtime)
            return known->second.map;
    }
    if (m_isStopped)
        return nullptr;
    auto map = readMap(face);
    const std::lock_guard lock(m_mutex);
    if (map == nullptr || m_bytes + map->byteCount() > kMostBytes)
        return map;
    Entry &entry = m_entries[face.postScriptName];
    m_bytes += map->byteCount() - (entry.map ? entry.map->byteCount() : 0);
    entry = {face.filePath, face.mtime, map};
    return map;
}

} // namespace kerlune
