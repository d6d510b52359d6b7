#include "State/AppState.h"
#include "Support/Text.h"
#include "Support/Uuid.h"

#include <algorithm>

// What the user makes of the library: tags, collections, smart collections, favourites and recently used families.

namespace kerlune {

namespace {

using Kind = SidebarSelection::Kind;

const SmartCollection *findById(const std::vector<SmartCollection> &collections, const std::string &id)
{
    const auto found = std::find_if(collections.begin(), collections.end(),
                                    [&](const SmartCollection &collection) { return collection.id == id; });
    return found == collections.end() ? nullptr : &*found;
}

} // namespace

template <typename Change>
bool AppState::write(Change &&change)
{
    return m_store != nullptr && std::forward<Change>(change)(*m_store);
}

void AppState::reloadUserData()
{
    reloadFavorites();
    reloadCollections();
    reloadRecents();
    reloadTags();
    reloadSmartCollections();
}

// Tags.

std::vector<std::pair<std::string, std::int64_t>> AppState::allTags() const
{
    std::map<std::string, std::int64_t> counts;
    for (const auto &[family, carried] : tagsByFamily()) {
        for (const std::string &tag : carried)
            ++counts[tag];
    }
    std::vector<std::pair<std::string, std::int64_t>> sorted(counts.begin(), counts.end());
    const NameCollator collator;
    std::map<std::string, std::string> keys;
    for (const auto &[tag, count] : sorted)
        keys.emplace(tag, collator.sortKey(tag));
    std::stable_sort(sorted.begin(), sorted.end(),
                     [&](const auto &a, const auto &b) { return keys.at(a.first) < keys.at(b.first); });
    return sorted;
}

std::vector<std::string> AppState::tags(const std::string &family) const
{
    const auto carried = tagsByFamily().find(family);
    return carried == tagsByFamily().end() ? std::vector<std::string>()
                                           : std::vector(carried->second.begin(), carried->second.end());
}

bool AppState::setTag(const std::string &tag, const std::vector<std::string> &onFamilies, bool on)
{
    const std::string name = trimmed(tag);
    const bool isWritten =
        !name.empty() && write([&](FontIndexStore &store) { return store.setTag(on ? name : tag, onFamilies, on); });
    reloadTags();
    return isWritten;
}

bool AppState::renameTag(const std::string &tag, const std::string &newName)
{
    const std::string name = trimmed(newName);
    if (name.empty() || name == tag)
        return name == tag;
    const bool isWritten = write([&](FontIndexStore &store) { return store.renameTag(tag, name); });
    reloadTags();
    if (isWritten && sidebarSelection.value() == SidebarSelection{.kind = Kind::tag, .key = tag})
        sidebarSelection = SidebarSelection{.kind = Kind::tag, .key = name};
    return isWritten;
}

bool AppState::deleteTag(const std::string &tag)
{
    const bool isWritten = write([&](FontIndexStore &store) { return store.deleteTag(tag); });
    reloadTags();
    if (isWritten && sidebarSelection.value() == SidebarSelection{.kind = Kind::tag, .key = tag})
        sidebarSelection = SidebarSelection();
    return isWritten;
}

void AppState::reloadTags()
{
    tagsByFamily.set(m_store == nullptr ? TagsByFamily() : m_store->tags());
    tagsRevision.set(tagsRevision() + 1);
}

// Collections.

std::optional<std::string> AppState::createCollection(const std::string &newName)
{
    const std::string name = trimmed(newName);
    if (m_store == nullptr || name.empty())
        return std::nullopt;
    auto id = m_store->createCollection(name);
    reloadCollections();
    return id;
}

bool AppState::renameCollection(const std::string &id, const std::string &newName)
{
    const std::string name = trimmed(newName);
    const bool isWritten =
        !name.empty() && write([&](FontIndexStore &store) { return store.renameCollection(id, name); });
    reloadCollections();
    return isWritten;
}

bool AppState::deleteCollection(const std::string &id)
{
    const bool isWritten = write([&](FontIndexStore &store) { return store.deleteCollection(id); });
    reloadCollections();
    if (isWritten && sidebarSelection.value() == SidebarSelection{.kind = Kind::collection, .key = id})
        sidebarSelection = SidebarSelection();
    return isWritten;
}

bool AppState::addToCollection(const std::string &id, const std::vector<std::string> &families)
{
    const bool isKnown = collectionCache().contains(id); // members of no collection would come to light with none
    const bool isWritten = isKnown && write([&](FontIndexStore &store) { return store.addToCollection(id, families); });
    reloadCollections();
    return isWritten;
}

bool AppState::removeFromCollection(const std::string &id, const std::vector<std::string> &families)
{
    const bool isWritten = write([&](FontIndexStore &store) { return store.removeFromCollection(id, families); });
    reloadCollections();
    return isWritten;
}

std::vector<std::string> AppState::collectionFontPaths(const std::string &id) const
{
    std::set<std::string> paths;
    if (const auto members = collectionCache().find(id); members != collectionCache().end()) {
        for (const std::string &name : members->second) {
            const FontFamilyPointer member = family(name);
            for (const FontRecordPointer &face : member == nullptr ? std::vector<FontRecordPointer>() : member->faces)
                paths.insert(face->filePath);
        }
    }
    return {paths.begin(), paths.end()};
}

void AppState::reloadCollections()
{
    Collections stored = m_store == nullptr ? Collections() : m_store->collections();
    std::map<std::string, FamilyNames> members;
    for (const FontIndexStore::Collection &collection : stored) {
        const auto families = m_store->collectionMembers(collection.id);
        members.emplace(collection.id, FamilyNames(families.begin(), families.end()));
    }
    collections.set(std::move(stored));
    collectionCache.set(std::move(members));
    collectionsRevision.set(collectionsRevision() + 1);
}

// Smart collections.

std::optional<std::string> AppState::saveCurrentFiltersAsSmartCollection(const std::string &newName)
{
    const std::string name = trimmed(newName);
    const auto json = filtersToText(filters.value());
    if (name.empty() || !json)
        return std::nullopt;
    const std::string id = newUuid();
    const bool isWritten = write([&](FontIndexStore &store) { return store.saveSmartCollection({id, name, *json}); });
    reloadSmartCollections();
    if (!isWritten)
        return std::nullopt; // the filters stay: they are nowhere else
    filters = Filters();
    sidebarSelection = SidebarSelection{.kind = Kind::smart, .key = id};
    return id;
}

bool AppState::updateSmartCollection(const std::string &id)
{
    const SmartCollection *collection = findById(smartCollections(), id);
    const auto json = filtersToText(filters.value());
    if (collection == nullptr || !json)
        return false;
    const bool isWritten = write([&](FontIndexStore &store) {
        return store.saveSmartCollection({id, collection->name, *json});
    });
    reloadSmartCollections();
    return isWritten;
}

bool AppState::renameSmartCollection(const std::string &id, const std::string &newName)
{
    const std::string name = trimmed(newName);
    const SmartCollection *collection = findById(smartCollections(), id);
    const auto json = collection == nullptr ? std::nullopt : filtersToText(collection->filters);
    if (name.empty() || !json)
        return false;
    const bool isWritten = write([&](FontIndexStore &store) { return store.saveSmartCollection({id, name, *json}); });
    reloadSmartCollections();
    return isWritten;
}

bool AppState::deleteSmartCollection(const std::string &id)
{
    const bool isWritten = write([&](FontIndexStore &store) { return store.deleteSmartCollection(id); });
    reloadSmartCollections();
    if (sidebarSelection.value() == SidebarSelection{.kind = Kind::smart, .key = id})
        sidebarSelection = SidebarSelection();
    return isWritten;
}

void AppState::reloadSmartCollections()
{
    std::vector<SmartCollection> known;
    if (m_store != nullptr) {
        for (const FontIndexStore::SmartCollectionRow &row : m_store->smartCollections()) {
            if (auto criteria =
                    filtersFromText(row.filters)) // a newer build may have written what this one does not know
                known.push_back({row.id, row.name, *std::move(criteria)});
        }
    }
    smartCollections.set(std::move(known));
    smartRevision.set(smartRevision() + 1);
}

// Favourites and recently used families.

bool AppState::toggleFavorite(const std::string &family)
{
    const bool on = !favorites().contains(family);
    const bool isWritten = write([&](FontIndexStore &store) { return store.setFavorite(family, on); });
    if (isWritten) {
        FamilyNames changed = favorites();
        if (on)
            changed.insert(family);
        else
            changed.erase(family);
        favorites.set(std::move(changed));
    }
    return isWritten;
}

bool AppState::noteUsed(const std::string &family)
{
    const bool isWritten = write([&](FontIndexStore &store) { return store.noteRecent(family); });
    reloadRecents();
    return isWritten;
}

void AppState::reloadFavorites()
{
    favorites.set(m_store == nullptr ? FamilyNames() : m_store->favorites());
}

void AppState::reloadRecents()
{
    recents.set(m_store == nullptr ? std::vector<std::string>() : m_store->recents(kMostRecents));
}

} // namespace kerlune
