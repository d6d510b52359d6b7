#include "CLI/NamedThings.h"

#include "CLI/DisplayText.h"
#include "CLI/FilterOptions.h"
#include "Library/FolderScan.h"
#include "Support/Localization.h"
#include "Support/Text.h"

#include <algorithm>
#include <optional>

namespace kerlune {

namespace {

using Kind = SidebarSelection::Kind;
using Names = std::vector<std::string>;
using Id = tl::expected<std::string, Refusal>;

std::string joined(const Names &names)
{
    std::string text;
    for (const std::string &name : names)
        text += (text.empty() ? "" : ", ") + displayText(name);
    return text;
}

// The family itself, else all that differ from it in case.
Names matching(const std::set<std::string> &families, const std::string &name)
{
    if (families.contains(name))
        return {name};
    Names matches;
    std::copy_if(families.begin(), families.end(), std::back_inserter(matches),
                 [&](const std::string &family) { return equalIgnoringCase(family, name); });
    return matches;
}

void addOnce(Names &names, const std::string &name)
{
    if (std::find(names.begin(), names.end(), name) == names.end())
        names.push_back(name);
}

// The id of the entry that has this id, else of the only one that has this name.
template <typename Entries>
Id findId(const Entries &entries, const std::string &idOrName, const std::string &whenMissing)
{
    Names ids;
    for (const auto &entry : entries) {
        if (entry.id == idOrName)
            return entry.id;
        if (entry.name == idOrName)
            ids.push_back(entry.id);
    }
    if (ids.empty())
        return tl::unexpected(Refusal{kFailed, whenMissing});
    if (ids.size() > 1)
        return tl::unexpected(Refusal{
            kWrongUsage, localized("Plusieurs collections s’appellent « %1 » ; donnez l’un des identifiants : %2.",
                                   {displayText(idOrName), joined(ids)})});
    return ids.front();
}

Id folderId(const AppState &state, const std::string &idOrPath)
{
    const std::string path = normalisedPath(idOrPath);
    for (const WatchedFolder &folder : state.folderLibrary().folders()) {
        if (folder.id == idOrPath || folder.path == idOrPath || folder.path == path)
            return folder.id;
    }
    return tl::unexpected(
        Refusal{kFailed, localized("Aucun dossier surveillé ne correspond à « %1 ».", {displayText(idOrPath)})});
}

Id selectedKey(const AppState &state, const SidebarSelection &selection)
{
    switch (selection.kind) {
    case Kind::folder:
        return folderId(state, selection.key);
    case Kind::collection:
        return collectionId(state, selection.key);
    case Kind::smart:
        return readableSmartCollectionId(state, selection.key);
    default:
        return selection.key;
    }
}

} // namespace

tl::expected<Names, Refusal> indexedFamilies(const AppState &state, const Names &names)
{
    const std::set<std::string> indexed = state.store()->indexedFamilies();
    Names families;
    for (const std::string &name : names) {
        const Names matches = matching(indexed, name);
        if (matches.empty())
            return tl::unexpected(
                Refusal{kFailed, localized("Aucune famille « %1 » dans l’index ; « kerlune index » le remet à jour.",
                                           {displayText(name)})});
        if (matches.size() > 1)
            return tl::unexpected(
                Refusal{kFailed, localized("Plusieurs familles s’appellent « %1 » à la casse près : %2.",
                                           {displayText(name), joined(matches)})});
        addOnce(families, matches.front());
    }
    return families;
}

Names presentFamilies(const std::set<std::string> &present, const Names &names)
{
    Names families;
    for (const std::string &name : names) {
        const Names matches = matching(present, name);
        if (matches.size() == 1)
            addOnce(families, matches.front());
        else
            printMessage(localized("La famille « %1 » n’y est pas.", {displayText(name)}));
    }
    return families;
}

Id collectionId(const AppState &state, const std::string &idOrName)
{
    return findId(state.collections(), idOrName, localized("Aucune collection « %1 ».", {displayText(idOrName)}));
}

Id smartCollectionId(const AppState &state, const std::string &idOrName)
{
    return findId(state.store()->smartCollections(), idOrName,
                  localized("Aucune collection intelligente « %1 ».", {displayText(idOrName)}));
}

Id readableSmartCollectionId(const AppState &state, const std::string &idOrName)
{
    const Id id = smartCollectionId(state, idOrName);
    const auto &known = state.smartCollections();
    const bool isKnown = id && std::any_of(known.begin(), known.end(),
                                           [&](const SmartCollection &collection) { return collection.id == *id; });
    if (!id || isKnown)
        return id;
    return tl::unexpected(
        Refusal{kFailed, localized("Les filtres de « %1 » ne peuvent pas être lus : ils sont endommagés, ou d’une "
                                   "version plus récente de Kerlune.",
                                   {displayText(idOrName)})});
}

tl::expected<SidebarSelection, Refusal> selectionNamed(const AppState &state, const std::string &text)
{
    auto selection = selectionFromText(text);
    if (!selection)
        return tl::unexpected(Refusal{
            kWrongUsage,
            localized("Sélection incorrecte : « %1 ». Il faut all, favorites, recents, variable, color, duplicates, "
                      "class:CLASSE, collection:ID-OU-NOM, folder:ID-OU-CHEMIN, tag:TAG, smart:ID-OU-NOM, adobeFonts "
                      "ou googleFonts ; les classes sont %2.",
                      {displayText(text), classKeys()})});
    auto key = selectedKey(state, *selection);
    if (!key)
        return tl::unexpected(std::move(key).error());
    selection->key = *std::move(key);
    return *std::move(selection);
}

} // namespace kerlune
