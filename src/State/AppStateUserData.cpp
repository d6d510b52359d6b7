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

std::vector<SmartCollection> readSmartCollections(FontIndexStore &store)
{
    std::vector<SmartCollection> known;
    for (const FontIndexStore::SmartCollectionRow &row : store.smartCollections()) {
        if (auto criteria = filtersFromText(row.filters)) // a newer build may have written what this one does not know
            known.push_back({row.id, row.name, *std::move(criteria)});
    }
    return known;
}

} // namespace

template <typename Change>
bool AppState::write(Change &&change)
{
    return m_store != nullptr && std::forward<Change>(change)(*m_store);
}

// Only what is not as it was: the visible list is then kept.
void AppState::reloadUserData()
{
    if (m_store == nullptr)
        return;
    if (auto stored = m_store->favorites(); stored != favorites())
        publishFavorites(std::move(stored));
    auto storedCollections = m_store->collections();
    auto members = m_store->allCollectionMembers();
    if (storedCollections != collections() || members != collectionCache())
        publishCollections(std::move(storedCollections), std::move(members));
    if (auto stored = m_store->recents(kMostRecents); stored != recents())
        publishRecents(std::move(stored));
    if (auto stored = m_store->tags(); stored != tagsByFamily())
        publishTags(std::move(stored));
    if (auto stored = readSmartCollections(*m_store); stored != smartCollections())
        publishSmartCollections(std::move(stored));
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
    const std::string name = on ? trimmed(tag) : tag;
    const bool isWritten =
        !name.empty() && write([&](FontIndexStore &store) { return store.setTag(name, onFamilies, on); });
    reloadTags();
    return isWritten;
}

bool AppState::renameTag(std::string tag, const std::string &newName)
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

bool AppState::deleteTag(std::string tag)
{
    const bool isWritten = write([&](FontIndexStore &store) { return store.deleteTag(tag); });
    reloadTags();
    if (isWritten && sidebarSelection.value() == SidebarSelection{.kind = Kind::tag, .key = tag})
        sidebarSelection = SidebarSelection();
    return isWritten;
}

void AppState::reloadTags()
{
    publishTags(m_store == nullptr ? TagsByFamily() : m_store->tags());
}

void AppState::publishTags(TagsByFamily stored)
{
    tagsByFamily.set(std::move(stored));
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

bool AppState::deleteCollection(std::string id)
{
    const bool isWritten = write([&](FontIndexStore &store) { return store.deleteCollection(id); });
    reloadCollections();
    if (isWritten && sidebarSelection.value() == SidebarSelection{.kind = Kind::collection, .key = id})
        sidebarSelection = SidebarSelection();
    return isWritten;
}

bool AppState::addToCollection(std::string id, const std::vector<std::string> &families)
{
    const bool isWritten = write([&](FontIndexStore &store) { return store.addToCollection(id, families); });
    reloadCollections();
    return isWritten && collectionCache().contains(id);
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
    if (m_store != nullptr)
        publishCollections(m_store->collections(), m_store->allCollectionMembers());
}

// The members first: whoever hears of a collection looks for them.
void AppState::publishCollections(Collections stored, std::map<std::string, FamilyNames> members)
{
    collectionCache.set(std::move(members));
    collections.set(std::move(stored));
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

// Name and filters are written each by itself: another process may just have changed the other one.
bool AppState::updateSmartCollection(const std::string &id)
{
    const auto json = filtersToText(filters.value());
    if (findById(smartCollections(), id) == nullptr || !json)
        return false;
    const bool isWritten = write([&](FontIndexStore &store) { return store.setSmartCollectionFilters(id, *json); });
    reloadSmartCollections();
    return isWritten;
}

bool AppState::renameSmartCollection(const std::string &id, const std::string &newName)
{
    const std::string name = trimmed(newName);
    if (name.empty() || findById(smartCollections(), id) == nullptr)
        return false;
    const bool isWritten = write([&](FontIndexStore &store) { return store.renameSmartCollection(id, name); });
    reloadSmartCollections();
    return isWritten;
}

bool AppState::deleteSmartCollection(std::string id)
{
    const bool isWritten = write([&](FontIndexStore &store) { return store.deleteSmartCollection(id); });
    reloadSmartCollections();
    if (sidebarSelection.value() == SidebarSelection{.kind = Kind::smart, .key = id})
        sidebarSelection = SidebarSelection();
    return isWritten;
}

void AppState::reloadSmartCollections()
{
    publishSmartCollections(m_store == nullptr ? std::vector<SmartCollection>() : readSmartCollections(*m_store));
}

void AppState::publishSmartCollections(std::vector<SmartCollection> stored)
{
    smartCollections.set(std::move(stored));
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
        publishFavorites(std::move(changed));
    }
    return isWritten;
}

bool AppState::setFavorites(const std::vector<std::string> &families, bool on)
{
    const bool isWritten = write([&](FontIndexStore &store) { return store.setFavorites(families, on); });
    if (m_store != nullptr)
        publishFavorites(m_store->favorites());
    return isWritten;
}

bool AppState::noteUsed(const std::string &family)
{
    const bool isWritten = write([&](FontIndexStore &store) { return store.noteRecent(family); });
    reloadRecents();
    return isWritten;
}

void AppState::publishFavorites(FamilyNames stored)
{
    ++m_listRevision;
    favorites.set(std::move(stored));
}

void AppState::reloadRecents()
{
    if (m_store != nullptr)
        publishRecents(m_store->recents(kMostRecents));
}

void AppState::publishRecents(std::vector<std::string> stored)
{
    ++m_listRevision;
    recents.set(std::move(stored));
}

// Putting back.

bool AppState::restoreUserData(const UserData &data)
{
    const bool isWritten = write([&](FontIndexStore &store) { return store.restore(data).has_value(); });
    reloadUserData();
    return isWritten;
}

} // namespace kerlune
