#include "UI/Sidebar/SidebarEntries.h"

#include "Support/Localization.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <utility>

namespace kerlune {

namespace {

using Entries = std::vector<SidebarEntry>;
using Kind = SidebarSelection::Kind;

SidebarEntry entry(Kind kind, std::string name, const char *icon, std::optional<std::int64_t> count)
{
    return {.selection = {.kind = kind}, .name = std::move(name), .icon = icon, .count = count};
}

// Of those that the library holds: what is gone is not shown, and so not counted.
std::int64_t countInLibrary(const AppState &state, const auto &names)
{
    return std::count_if(names.begin(), names.end(),
                         [&](const std::string &name) { return state.family(name) != nullptr; });
}

Entries libraryEntries(const AppState &state)
{
    const LibraryCounts &counts = state.counts();
    return {
        entry(Kind::all, localized("Toutes"), "all", std::ssize(state.families())),
        entry(Kind::favorites, localized("Favoris"), "star", countInLibrary(state, state.favorites())),
        entry(Kind::recents, localized("Récents"), "clock", countInLibrary(state, state.recents())),
        entry(Kind::variable, localized("Variables"), "variable", counts.variable),
        entry(Kind::color, localized("Couleur"), "color", counts.color),
        entry(Kind::duplicates, localized("Doublons"), "duplicates", std::ssize(state.duplicateFamilies())),
    };
}

Entries classEntries(const AppState &state)
{
    Entries entries;
    for (const FontClass fontClass : kAllFontClasses) {
        const auto &counts = state.counts().byClass;
        const auto found = counts.find(fontClass);
        SidebarEntry made =
            entry(Kind::classification, label(fontClass), "class", found == counts.end() ? 0 : found->second);
        made.selection.fontClass = fontClass;
        entries.push_back(std::move(made));
    }
    return entries;
}

std::string folderName(const WatchedFolder &folder)
{
    if (folder.isManagedLibrary)
        return localized("Bibliothèque Kerlune");
    const std::string name = std::filesystem::path(folder.path).filename();
    return name.empty() ? folder.path : name;
}

Entries folderEntries(const AppState &state, const SidebarFolders &folders)
{
    Entries entries;
    for (const WatchedFolder &folder : state.folderLibrary().folders()) {
        const auto count = folders.counts.find(folder.id);
        const bool isMissing = folders.missing.contains(folder.id);
        SidebarEntry made = entry(Kind::folder, folderName(folder), isMissing ? "folder-missing" : "folder",
                                  count == folders.counts.end() ? std::nullopt : std::optional(count->second));
        made.selection.key = folder.id;
        made.path = folder.path;
        made.isMissing = isMissing;
        made.isFixed = folder.isManagedLibrary;
        entries.push_back(std::move(made));
    }
    return entries;
}

Entries collectionEntries(const AppState &state)
{
    Entries entries;
    for (const FontIndexStore::Collection &collection : state.collections()) {
        const auto members = state.collectionCache().find(collection.id);
        const bool hasMembers = members != state.collectionCache().end();
        SidebarEntry made = entry(Kind::collection, collection.name, "collection",
                                  hasMembers ? countInLibrary(state, members->second) : 0);
        made.selection.key = collection.id;
        entries.push_back(std::move(made));
    }
    return entries;
}

// Without numbers: each would run its filters over the whole library at every change, and some filters open fonts.
Entries smartEntries(const AppState &state)
{
    Entries entries;
    for (const SmartCollection &collection : state.smartCollections()) {
        SidebarEntry made = entry(Kind::smart, collection.name, "smart", std::nullopt);
        made.selection.key = collection.id;
        entries.push_back(std::move(made));
    }
    return entries;
}

Entries tagEntries(const AppState &state)
{
    std::map<std::string, std::int64_t> counts;
    for (const auto &[family, tags] : state.tagsByFamily()) {
        if (state.family(family) == nullptr)
            continue;
        for (const std::string &tag : tags)
            ++counts[tag];
    }
    Entries entries;
    for (const auto &[tag, everywhere] : state.allTags()) {
        const auto count = counts.find(tag);
        SidebarEntry made = entry(Kind::tag, tag, "tag", count == counts.end() ? 0 : count->second);
        made.selection.key = tag;
        entries.push_back(std::move(made));
    }
    return entries;
}

std::string hint(SidebarGroup group)
{
    switch (group) {
    case SidebarGroup::folders:
        return localized("Aucun dossier surveillé");
    case SidebarGroup::collections:
        return localized("Déposez ici des familles");
    case SidebarGroup::smart:
        return localized("Enregistrez des filtres");
    case SidebarGroup::tags:
        return localized("Aucun tag");
    default:
        return {};
    }
}

Entries entriesOf(SidebarGroup group, const AppState &state, const SidebarFolders &folders)
{
    switch (group) {
    case SidebarGroup::library:
        return libraryEntries(state);
    case SidebarGroup::classes:
        return classEntries(state);
    case SidebarGroup::folders:
        return folderEntries(state, folders);
    case SidebarGroup::collections:
        return collectionEntries(state);
    case SidebarGroup::smart:
        return smartEntries(state);
    case SidebarGroup::tags:
        return tagEntries(state);
    case SidebarGroup::catalogs:
        return {entry(Kind::googleFonts, "Google Fonts", "globe", std::nullopt)};
    }
    return {};
}

} // namespace

std::vector<SidebarEntry> sidebarEntries(SidebarGroup group, const AppState &state, const SidebarFolders &folders)
{
    Entries entries = entriesOf(group, state, folders);
    if (entries.empty())
        entries.push_back({.name = hint(group), .isHint = true});
    return entries;
}

std::string label(SidebarGroup group)
{
    switch (group) {
    case SidebarGroup::library:
        return localized("Bibliothèque");
    case SidebarGroup::classes:
        return localized("Classes");
    case SidebarGroup::folders:
        return localized("Dossiers");
    case SidebarGroup::collections:
        return localized("Collections");
    case SidebarGroup::smart:
        return localized("Collections intelligentes");
    case SidebarGroup::tags:
        return localized("Tags");
    case SidebarGroup::catalogs:
        return localized("Catalogues");
    }
    return {};
}

std::string_view sidebarGroupKey(SidebarGroup group)
{
    constexpr std::array<std::string_view, kAllSidebarGroups.size()> keys{
        "library", "classes", "folders", "collections", "smart", "tags", "catalogs"};
    return keys[static_cast<std::size_t>(group)];
}

bool SidebarEntry::canBeRenamed() const
{
    return !isHint &&
           (selection.kind == Kind::collection || selection.kind == Kind::smart || selection.kind == Kind::tag);
}

} // namespace kerlune
