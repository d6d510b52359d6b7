#include "State/VisibleFamilies.h"

#include "Model/ScriptCoverage.h"
#include "Support/Text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <string_view>
#include <unordered_map>

namespace kerlune {

namespace {

using Families = std::vector<FontFamilyPointer>;
using Kind = SidebarSelection::Kind;

Families keptIf(Families families, const std::function<bool(const FontFamily &)> &isKept)
{
    std::erase_if(families, [&](const FontFamilyPointer &family) { return !isKept(*family); });
    return families;
}

Families found(const LoadedLibrary &library, const std::string &search)
{
    if (search.empty())
        return library.families;
    Families families;
    for (const std::size_t position : library.searchIndex.positions(folded(search)))
        families.push_back(library.families[position]);
    return families;
}

Families members(Families families, const LibraryContext &context, const std::string &collection)
{
    const auto known = context.collectionMembers.find(collection);
    if (known == context.collectionMembers.end())
        return {};
    return keptIf(std::move(families), [&](const FontFamily &family) { return known->second.contains(family.name); });
}

Families inFolder(const Families &families, const LibraryContext &context, const std::string &id)
{
    const auto folder = std::find_if(context.folders.begin(), context.folders.end(),
                                     [&](const WatchedFolder &candidate) { return candidate.id == id; });
    if (folder == context.folders.end())
        return {};
    return narrowedFaces(families, [&](const FontRecord &face) { return isBelow(face.filePath, folder->path); });
}

Families smart(Families families, const LibraryContext &context, const std::string &id)
{
    const auto collection = std::find_if(context.smartCollections.begin(), context.smartCollections.end(),
                                         [&](const SmartCollection &candidate) { return candidate.id == id; });
    if (collection == context.smartCollections.end())
        return {};
    return apply(collection->filters, std::move(families), {context.library.searchIndex, context.tags, context.glyphs},
                 SearchText::Included);
}

Families recentlyUsed(Families families, const std::vector<std::string> &recents)
{
    std::unordered_map<std::string_view, std::size_t> positions;
    for (std::size_t i = 0; i < recents.size(); ++i)
        positions.emplace(recents[i], i);
    families = keptIf(std::move(families), [&](const FontFamily &family) { return positions.contains(family.name); });
    std::stable_sort(families.begin(), families.end(),
                     [&](const auto &a, const auto &b) { return positions.at(a->name) < positions.at(b->name); });
    return families;
}

Families duplicates(Families families, const LoadedLibrary &library)
{
    std::unordered_set<std::string> names;
    for (const FontFamily &family : library.duplicates)
        names.insert(family.name);
    return keptIf(std::move(families), [&](const FontFamily &family) { return names.contains(family.name); });
}

Families selected(Families families, const SidebarSelection &selection, const LibraryContext &context)
{
    switch (selection.kind) {
    case Kind::classification:
        return keptIf(std::move(families), [&](const FontFamily &family) {
            return family.representative()->classification == selection.fontClass;
        });
    case Kind::collection:
        return members(std::move(families), context, selection.key);
    case Kind::folder:
        return inFolder(families, context, selection.key);
    case Kind::tag:
        return keptIf(std::move(families), [&](const FontFamily &family) {
            const auto tags = context.tags.find(family.name);
            return tags != context.tags.end() && tags->second.contains(selection.key);
        });
    case Kind::smart:
        return smart(std::move(families), context, selection.key);
    case Kind::favorites:
        return keptIf(std::move(families),
                      [&](const FontFamily &family) { return context.favorites.contains(family.name); });
    case Kind::recents:
        return recentlyUsed(std::move(families), context.recents);
    case Kind::variable:
        return keptIf(std::move(families), [](const FontFamily &family) { return family.isVariable(); });
    case Kind::color:
        return keptIf(std::move(families), [](const FontFamily &family) { return family.isColor(); });
    case Kind::duplicates:
        return duplicates(std::move(families), context.library);
    case Kind::all:
    case Kind::adobeFonts:
    case Kind::googleFonts:
        break;
    }
    return families;
}

} // namespace

Families visibleFamilies(const Filters &filters, const SidebarSelection &selection, const LibraryContext &context)
{
    return apply(filters, selected(found(context.library, filters.search), selection, context),
                 {context.library.searchIndex, context.tags, context.glyphs}, SearchText::LeftOut);
}

LibraryCounts countFamilies(const Families &families)
{
    LibraryCounts counts;
    for (const FontFamilyPointer &family : families) {
        ++counts.byClass[family->representative()->classification];
        counts.variable += family->isVariable() ? 1 : 0;
        counts.color += family->isColor() ? 1 : 0;
    }
    return counts;
}

std::map<std::string, std::int64_t> countLanguages(const Families &families)
{
    std::array<std::int64_t, 64> counts{}; // by bit
    for (const FontFamilyPointer &family : families) {
        for (std::uint64_t mask = family->scriptMask(); mask != 0; mask &= mask - 1)
            ++counts[static_cast<std::size_t>(std::countr_zero(mask))];
    }
    std::map<std::string, std::int64_t> byId;
    const auto &languages = ScriptCoverage::all();
    for (std::size_t i = 0; i < std::min(languages.size(), counts.size()); ++i) {
        if (counts[i] > 0)
            byId.emplace(languages[i].id, counts[i]);
    }
    return byId;
}

std::int64_t countInFolder(const Families &families, const std::string &folder)
{
    return std::count_if(families.begin(), families.end(), [&](const FontFamilyPointer &family) {
        return std::any_of(family->faces.begin(), family->faces.end(),
                           [&](const FontRecordPointer &face) { return isBelow(face->filePath, folder); });
    });
}

} // namespace kerlune
