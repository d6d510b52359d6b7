#include "State/FilterPipeline.h"

#include "State/GlyphCoverage.h"
#include "State/SearchIndex.h"
#include "Support/ParallelFor.h"
#include "Support/Text.h"

#include <algorithm>

namespace kerlune {

namespace {

using Families = std::vector<FontFamilyPointer>;

template <typename Predicate>
void keep(Families &families, Predicate &&isKept)
{
    std::erase_if(families, [&](const FontFamilyPointer &family) { return !isKept(*family); });
}

bool carriesAll(const TagsByFamily &tags, const std::string &family, const std::set<std::string> &wanted)
{
    const auto carried = tags.find(family);
    return carried != tags.end() &&
           std::includes(carried->second.begin(), carried->second.end(), wanted.begin(), wanted.end());
}

// The family itself where it keeps all faces, null where it keeps none.
FontFamilyPointer narrowedFamily(const FontFamilyPointer &family, const std::function<bool(const FontRecord &)> &isKept)
{
    const auto isFaceKept = [&](const FontRecordPointer &face) { return isKept(*face); };
    const auto kept = std::count_if(family->faces.begin(), family->faces.end(), isFaceKept);
    if (kept == std::ssize(family->faces))
        return family;
    if (kept == 0)
        return nullptr;
    FontFamily fewer{family->name, {}};
    fewer.faces.reserve(static_cast<std::size_t>(kept));
    std::copy_if(family->faces.begin(), family->faces.end(), std::back_inserter(fewer.faces), isFaceKept);
    return std::make_shared<const FontFamily>(std::move(fewer));
}

} // namespace

Families apply(const Filters &filters, Families families, const FilterSources &sources, SearchText searchText)
{
    if (searchText == SearchText::Included && !filters.search.empty()) {
        const std::string needle = folded(filters.search);
        keep(families, [&](const FontFamily &family) { return sources.searchIndex.matches(family.name, needle); });
    }
    if (!filters.classes.empty()) {
        keep(families, [&](const FontFamily &family) {
            return filters.classes.contains(family.representative()->classification);
        });
    }
    if (filters.onlyVariable)
        keep(families, [](const FontFamily &family) { return family.isVariable(); });
    if (filters.onlyColor)
        keep(families, [](const FontFamily &family) { return family.isColor(); });
    if (filters.onlyMonospace)
        keep(families, [](const FontFamily &family) { return family.representative()->isMonospace; });
    if (filters.riskyLicenseOnly)
        keep(families, [](const FontFamily &family) { return family.riskyLicense(); });
    if (filters.languageBits != 0) {
        keep(families, [&](const FontFamily &family) { return (filters.languageBits & ~family.scriptMask()) == 0; });
    }
    if (!filters.tags.empty())
        keep(families, [&](const FontFamily &family) { return carriesAll(sources.tags, family.name, filters.tags); });
    if (filters.onlyItalic)
        families = narrowedFaces(families, [](const FontRecord &face) { return face.isItalic; });
    if (filters.hideItalic)
        families = narrowedFaces(families, [](const FontRecord &face) { return !face.isItalic; });
    if (filters.weightRange != WeightRange()) {
        families = narrowedFaces(
            families, [&](const FontRecord &face) { return filters.weightRange.contains(face.cssWeight()); });
    }
    if (!filters.requiredGlyphs.empty())
        families = sources.glyphs.familiesWith(distinctCharacters(filters.requiredGlyphs), families);
    return families;
}

Families narrowedFaces(const Families &families, const std::function<bool(const FontRecord &)> &isKept)
{
    Families narrowed(families.size());
    parallelForRanges(families.size(), [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i != last; ++i)
            narrowed[i] = narrowedFamily(families[i], isKept);
    });
    std::erase(narrowed, nullptr);
    return narrowed;
}

} // namespace kerlune
