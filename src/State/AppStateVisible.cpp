#include "State/AppState.h"

#include <QCoroFuture>
#include <QPointer>
#include <QtConcurrentRun>

#include <algorithm>
#include <utility>

// The visible list and what is counted beside it.

namespace kerlune {

const AppState::Families &AppState::visibleFamilies() const
{
    FilterSignature signature = filterSignature();
    if (isVisibleListValid(signature))
        return m_visible->families;
    if (m_glyphsInBackground && requiresGlyphs()) { // readGlyphs() brings the list
        static const Families kNone;
        return m_visible ? m_visible->families : kNone;
    }
    m_visible = CachedList{std::move(signature), m_listRevision, computeVisibleFamilies()};
    return m_visible->families;
}

bool AppState::isVisibleListValid(const FilterSignature &signature) const
{
    return m_visible && m_visible->signature == signature && m_visible->revision == m_listRevision;
}

bool AppState::requiresGlyphs() const
{
    if (!filters.value().requiredGlyphs.empty())
        return true;
    const SidebarSelection &selection = sidebarSelection.value();
    return selection.kind == SidebarSelection::Kind::smart &&
           std::any_of(smartCollections().begin(), smartCollections().end(), [&](const SmartCollection &collection) {
               return collection.id == selection.key && !collection.filters.requiredGlyphs.empty();
           });
}

void AppState::readGlyphsInBackground()
{
    m_glyphsInBackground = true;
}

QCoro::Task<> AppState::readGlyphs()
{
    if (isReadingGlyphs())
        co_return; // the one that runs looks again at its end
    const QPointer<AppState> self(this);
    isReadingGlyphs.set(true);
    FilterSignature signature = filterSignature();
    while (requiresGlyphs() && !isVisibleListValid(signature)) {
        const std::int64_t revision = m_listRevision;
        const QFuture<Families> reading = listOnOtherThread(filters.value());
        Families families = co_await reading;
        if (!self)
            co_return;
        m_visible = CachedList{std::move(signature), revision, std::move(families)};
        signature = filterSignature();
    }
    isReadingGlyphs.set(false);
    Q_EMIT visibleFamiliesChanged();
}

QCoro::Task<std::int64_t> AppState::countVisibleWith(Filters otherFilters)
{
    const QFuture<Families> listing = listOnOtherThread(std::move(otherFilters));
    const Families families = co_await listing;
    co_return static_cast<std::int64_t>(families.size());
}

// The destructor waits for it.
QFuture<AppState::Families> AppState::listOnOtherThread(Filters otherFilters)
{
    return QtConcurrent::run(&m_pool, [this, library = library(), favorites = favorites(), recents = recents(),
                                       members = collectionCache(), tags = tagsByFamily(), smart = smartCollections(),
                                       folders = m_folders.folders(), filters = std::move(otherFilters),
                                       selection = sidebarSelection.value()] {
        return kerlune::visibleFamilies(filters, selection,
                                        {*library, favorites, recents, members, tags, smart, folders, m_glyphs});
    });
}

AppState::Families AppState::computeVisibleFamilies() const
{
    return kerlune::visibleFamilies(filters.value(), sidebarSelection.value(), context());
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
    const auto tell = [this] {
        if (m_glyphsInBackground && requiresGlyphs() && !isVisibleListValid(filterSignature()))
            readGlyphs();
        Q_EMIT visibleFamiliesChanged();
    };
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
