#include "Platform/FaceFeatures.h"

#include <hb-ot.h>
#include <hb.h>

#include <algorithm>
#include <array>
#include <map>

namespace kerlune {

namespace {

constexpr unsigned kMostFeatureRecords = 16'384; // one for each feature, script and language system
constexpr unsigned kMostValueNames = 100;
constexpr std::size_t kMostTableBytes = 16U << 20;

// Which lookups of 'GSUB' choose among alternates, and among how many.
//
// Errors: what lies outside the table counts as nothing, and so does what comes after 200,000 steps: offsets may lead
// to the same place again and again.
class AlternateCounts final {
public:
    explicit AlternateCounts(const FontFace &face)
        : m_table(face.tables().read(tag("GSUB"), kMostTableBytes))
        , m_lookupList(readU16(m_table, 8).value_or(0)) // GSUB header: lookupListOffset
    {}

    bool isExhausted() const { return m_steps > kMostSteps; }

    std::uint32_t ofLookup(unsigned lookup)
    {
        if (isExhausted())
            return 0;
        ++m_steps;
        const auto known = m_known.find(lookup);
        if (known != m_known.end())
            return known->second;
        return m_known.emplace(lookup, count(lookup)).first->second;
    }

private:
    static constexpr std::uint16_t kAlternate = 3; // LookupType
    static constexpr std::uint16_t kExtension = 7;

    std::uint32_t count(unsigned lookup)
    {
        const auto offset = readU16(m_table, m_lookupList + 2 + 2 * std::size_t{lookup});
        if (m_lookupList == 0 || !offset)
            return 0;
        // Lookup: lookupType, lookupFlag, subTableCount, offsets.
        const std::size_t at = m_lookupList + *offset;
        const std::uint16_t type = readU16(m_table, at).value_or(0);
        const std::uint16_t subtables = readU16(m_table, at + 4).value_or(0);
        std::uint32_t most = 0;
        for (std::size_t i = 0; i < subtables && (type == kAlternate || type == kExtension); ++i) {
            const auto subtable = readU16(m_table, at + 6 + 2 * i);
            if (!subtable || isExhausted())
                break;
            ++m_steps;
            most = std::max(most, ofSubtable(type, at + *subtable));
        }
        return most;
    }

    std::uint32_t ofSubtable(std::uint16_t type, std::size_t at)
    {
        if (type == kExtension) { // format, extensionLookupType, extensionOffset
            if (readU16(m_table, at + 2).value_or(0) != kAlternate)
                return 0;
            at += readU32(m_table, at + 4).value_or(0);
        }
        // AlternateSubstFormat1: format, coverage, alternateSetCount, offsets to AlternateSet: glyphCount, glyphs.
        std::uint32_t most = 0;
        const std::uint16_t sets = readU16(m_table, at + 4).value_or(0);
        for (std::size_t i = 0; i < sets; ++i) {
            const auto set = readU16(m_table, at + 6 + 2 * i);
            if (!set || isExhausted())
                break;
            ++m_steps;
            most = std::max<std::uint32_t>(most, readU16(m_table, at + *set).value_or(0));
        }
        return most;
    }

    static constexpr std::size_t kMostSteps = 200'000;

    std::vector<std::uint8_t> m_table;
    std::size_t m_lookupList;
    std::size_t m_steps = 0;
    std::map<unsigned, std::uint32_t> m_known;
};

std::vector<hb_tag_t> featureTags(const FontFace &face, hb_tag_t table)
{
    unsigned count =
        std::min(hb_ot_layout_table_get_feature_tags(face.harfBuzz(), table, 0, nullptr, nullptr), kMostFeatureRecords);
    std::vector<hb_tag_t> tags(count);
    hb_ot_layout_table_get_feature_tags(face.harfBuzz(), table, 0, &count, tags.data());
    tags.resize(std::min<std::size_t>(tags.size(), count));
    return tags;
}

std::uint32_t alternatesOf(const FontFace &face, unsigned featureIndex, AlternateCounts &counts)
{
    std::uint32_t most = 1;
    std::array<unsigned, 64> lookups{};
    for (unsigned start = 0;;) {
        auto count = static_cast<unsigned>(lookups.size());
        const unsigned total = hb_ot_layout_feature_get_lookups(face.harfBuzz(), HB_OT_TAG_GSUB, featureIndex, start,
                                                                &count, lookups.data());
        for (unsigned i = 0; i < count; ++i)
            most = std::max(most, counts.ofLookup(lookups.at(i)));
        start += count;
        if (count == 0 || start >= total || counts.isExhausted())
            return most;
    }
}

void readNames(const FontFace &face, unsigned featureIndex, FaceFeature &feature)
{
    hb_ot_name_id_t label = HB_OT_NAME_ID_INVALID;
    hb_ot_name_id_t firstValue = HB_OT_NAME_ID_INVALID;
    unsigned values = 0;
    if (hb_ot_layout_feature_get_name_ids(face.harfBuzz(), HB_OT_TAG_GSUB, featureIndex, &label, nullptr, nullptr,
                                          &values, &firstValue) == 0)
        return;
    if (label != HB_OT_NAME_ID_INVALID)
        feature.ownName = face.name(static_cast<NameId>(label));
    if (firstValue == HB_OT_NAME_ID_INVALID)
        return;
    for (unsigned i = 0; i < std::min(values, kMostValueNames) && firstValue + i < HB_OT_NAME_ID_INVALID; ++i)
        feature.valueNames.push_back(face.name(static_cast<NameId>(firstValue + i)).value_or(std::string()));
}

} // namespace

std::vector<FaceFeature> readFeatures(const FontFace &face)
{
    std::map<Tag, FaceFeature> byTag;
    const auto entry = [&byTag](Tag tag) -> FaceFeature & {
        FaceFeature &feature = byTag[tag];
        feature.tag = tag;
        return feature;
    };
    AlternateCounts counts(face);
    unsigned index = 0;
    for (const hb_tag_t tag : featureTags(face, HB_OT_TAG_GSUB)) {
        FaceFeature &feature = entry(tag);
        feature.substitutes = true;
        feature.alternates = std::max(feature.alternates, alternatesOf(face, index, counts));
        if (!feature.ownName)
            readNames(face, index, feature);
        ++index;
    }
    for (const hb_tag_t tag : featureTags(face, HB_OT_TAG_GPOS))
        entry(tag).positions = true;

    std::vector<FaceFeature> features;
    features.reserve(byTag.size());
    for (auto &[tag, feature] : byTag) {
        feature.isOnByDefault = isFeatureOnByDefault(tag);
        features.push_back(std::move(feature));
    }
    return features;
}

} // namespace kerlune
