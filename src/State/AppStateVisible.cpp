#include "State/AppState.h"

// The visible list and what is counted beside it.

namespace kerlune {

const AppState::Families &AppState::visibleFamilies() const
{
    FilterSignature signature = filterSignature();
    if (!m_visible || m_visible->signature != signature || m_visible->revision != m_listRevision)
        m_visible = CachedList{std::move(signature), m_listRevision, computeVisibleFamilies()};
    return m_visible->families;
}

AppState::Families AppState::computeVisibleFamilies() const
{
    return visibleFamiliesWith(filters.value());
}

AppState::Families AppState::visibleFamiliesWith(const Filters &otherFilters) const
{
    return kerlune::visibleFamilies(otherFilters, sidebarSelection.value(), context());
}

FilterSignature AppState::filterSignature() const
{
    return {.filters = filters.value(),
            .selection = sidebarSelection.value(),
            .familyCount = static_cast<std::int64_t>(families().size()),
            .favoritesCount = static_cast<std::int64_t>(favorites().size()),
            .recentsCount = static_cast<std::int64_t>(recents().size()),
            .collectionsRevision = collectionsRevision(),
            .tagsRevision = tagsRevision(),
            .smartRevision = smartRevision(),
            .folderRevision = m_folders.revision()};
}

LibraryContext AppState::context() const
{
    return {.library = *library(),
            .favorites = favorites(),
            .recents = recents(),
            .collectionMembers = collectionCache(),
            .tags = tagsByFamily(),
            .smartCollections = smartCollections(),
            .folders = m_folders.folders(),
            .glyphs = m_glyphs};
}

const LibraryCounts &AppState::counts() const
{
    if (!m_counts)
        m_counts = countFamilies(families());
    return *m_counts;
}

const std::map<std::string, std::int64_t> &AppState::languageCounts() const
{
    if (!m_languageCounts)
        m_languageCounts = countLanguages(families());
    return *m_languageCounts;
}

std::int64_t AppState::familyCountInFolder(const std::string &id) const
{
    const auto folder = m_folders.folder(id);
    return folder ? countInFolder(families(), folder->path) : 0;
}

ViewMode AppState::effectiveViewMode() const
{
    return sidebarSelection.value().kind == SidebarSelection::Kind::duplicates ? ViewMode::grid : viewMode.value();
}

void AppState::followVisibleList()
{
    const auto tell = [this] { Q_EMIT visibleFamiliesChanged(); };
    m_observers.push_back(filters.addNotifier(tell));
    m_observers.push_back(sidebarSelection.addNotifier(tell));
    m_observers.push_back(library.observe(tell));
    m_observers.push_back(favorites.observe(tell));
    m_observers.push_back(recents.observe(tell));
    m_observers.push_back(collectionsRevision.observe(tell));
    m_observers.push_back(tagsRevision.observe(tell));
    m_observers.push_back(smartRevision.observe(tell));
    m_observers.push_back(m_folders.bindableRevision().addNotifier(tell));
}

} // namespace kerlune
