#include "Model/FontIndexer.h"
#include "State/AppState.h"
#include "State/RecordRefresh.h"
#include "Support/Localization.h"

#include <QCoroFuture>
#include <QFutureWatcher>
#include <QPointer>
#include <QPromise>
#include <QtConcurrentRun>

#include <utility>

// Reading the library at the start, indexing it, and following what the system offers.
// A future is always named before it is awaited; see docs/decisions/0003-futures-are-named.md.

namespace kerlune {

namespace {

using Library = std::shared_ptr<const LoadedLibrary>;

struct Offer {
    std::int64_t count = 0;
    std::optional<SkippedFont> obstacle; // the system was not asked because of it
};

Offer countFonts(const FontCatalog &catalog)
{
    const FontCatalog::Listing listing = catalog.availableFonts(Duplicates::Remove);
    return {static_cast<std::int64_t>(listing.fonts.size()), systemObstacle(listing.skipped)};
}

void buildLibrary(QPromise<Library> &promise, const FontCatalog &catalog, const std::stop_token &stop)
{
    const auto report = [&](const FontIndexer::Progress &progress) {
        promise.setProgressRange(0, static_cast<int>(progress.total));
        promise.setProgressValue(static_cast<int>(progress.done));
    };
    auto index = FontIndexer(catalog).buildIndex(report, stop);
    promise.addResult(std::make_shared<const LoadedLibrary>(makeLibrary(std::move(index.records))));
}

// Null when the store holds nothing.
Library storedLibrary(FontIndexStore &store)
{
    auto records = store.loadAll();
    return records.empty() ? nullptr : std::make_shared<const LoadedLibrary>(makeLibrary(std::move(records)));
}

// Null when nothing has changed, or the system cannot be asked.
Library refreshedLibrary(const FontCatalog &catalog, const std::vector<FontRecordPointer> &known)
{
    auto records = refreshedRecords(catalog, known);
    if (!records || sameRecords(*records, known))
        return nullptr;
    return std::make_shared<const LoadedLibrary>(makeLibrary(*std::move(records)));
}

// The index has one row for each name, and counts as many as a start-up will find on offer. One that holds the same
// already is left alone, and so is one that would become empty: a machine that has lost its fonts keeps it.
void save(FontIndexStore &store, const LoadedLibrary &library, const LoadedLibrary *stored)
{
    const auto records = firstOfEachName(library.records);
    if (!records.empty() && (stored == nullptr || !sameRecords(records, firstOfEachName(stored->records))))
        store.replaceAll(records);
}

} // namespace

QCoro::Task<> AppState::load()
{
    if (isIndexing())
        co_return;
    const QPointer<AppState> self(this);
    readAhead();
    isIndexing.set(true);
    indexProgress.set(0);
    loadError.set(std::nullopt);
    if (m_store == nullptr) {
        loadError.set(m_storeError->description());
        isIndexing.set(false);
        hasLoaded.set(true);
        co_return;
    }
    refreshGoogleInstalled();
    reloadUserData();
    const auto activate = [this](std::vector<UsedFont> fonts, std::vector<std::string> documents, HostApp host) {
        return activateMissingFonts(std::move(fonts), std::move(documents), host);
    };
    m_missingFonts.start(activate);
    readStoredAhead();
    co_await m_activation.reapplyOnLaunch();
    if (!self)
        co_return;
    if (const auto &error = m_activation.lastError())
        setNotice({localized("Activation incomplète : ") + *error, true});
    indexMessage.set(localized("Lecture des dossiers surveillés…"));
    m_folders.refreshManagedLibraryEntry();
    co_await m_folders.rescanAll();
    if (!self)
        co_return;
    m_folders.startMonitoring();
    co_await readRecords(StoredIndex::MayServe);
    if (!self)
        co_return;
    hasLoaded.set(true);
    finishIndexing();
    m_foreignChanges.start();
    m_registryRefresh.trigger(); // files that were changed in place leave the count as it was
}

QCoro::Task<> AppState::rebuildIndex()
{
    if (isIndexing() || m_store == nullptr)
        co_return;
    const QPointer<AppState> self(this);
    isIndexing.set(true);
    indexProgress.set(0);
    co_await readRecords(StoredIndex::IsPassedOver);
    if (self)
        finishIndexing();
}

void AppState::cancelIndexing()
{
    if (canCancelIndexing())
        m_indexing.request_stop();
}

void AppState::finishIndexing()
{
    indexMessage.set({});
    isIndexing.set(false);
}

void AppState::readAhead()
{
    if (!m_isSystemAsked && m_store != nullptr)
        m_pool.start([&catalog = m_catalog] { catalog.readAhead(); });
    m_isSystemAsked = true;
}

// What is stored is read while folders are read and the fonts on offer are counted: most often it serves. Until it has
// been read, the store answers nothing else, and who asks it waits.
void AppState::readStoredAhead()
{
    const std::int64_t count = m_store->indexedCount();
    if (count != 0)
        m_readAhead =
            StoredRead{count, QtConcurrent::run(&m_pool, [store = m_store] { return storedLibrary(*store); })};
}

QCoro::Task<> AppState::readRecords(StoredIndex storedIndex)
{
    const QPointer<AppState> self(this);
    const auto counting = QtConcurrent::run(&m_pool, [&catalog = m_catalog] { return countFonts(catalog); });
    const Offer offer = co_await counting;
    if (!self)
        co_return;
    if (offer.obstacle) {
        setNotice({localized("Les polices du système ne peuvent pas être lues. %1 : %2",
                             {offer.obstacle->path, describe(offer.obstacle->reason)}),
                   true});
    }
    if (offer.obstacle && !m_readAhead)
        readStoredAhead();
    const bool mayServe =
        offer.obstacle || (storedIndex == StoredIndex::MayServe && m_readAhead && m_readAhead->count == offer.count);
    if (mayServe && m_readAhead) {
        indexMessage.set(localized("Lecture de l'index…"));
        const bool isRead = co_await readStoredRecords();
        if (!self || isRead)
            co_return;
    }
    m_readAhead.reset();
    co_await index(offer.count);
}

QCoro::Task<bool> AppState::readStoredRecords()
{
    const QPointer<AppState> self(this);
    const auto reading = std::exchange(m_readAhead, std::nullopt)->library;
    const Library stored = co_await reading;
    if (!self || stored == nullptr)
        co_return false;
    publish(stored);
    co_return true;
}

QCoro::Task<> AppState::index(std::int64_t count)
{
    const QPointer<AppState> self(this);
    m_indexing = std::stop_source();
    canCancelIndexing.set(!families().empty());
    indexMessage.set(localized("Analyse de %1 graisses…", {std::to_string(count)}));
    const QFuture<Library> building =
        QtConcurrent::run(&m_pool, [&catalog = m_catalog, stop = m_indexing.get_token()](QPromise<Library> &promise) {
            buildLibrary(promise, catalog, stop);
        });
    QFutureWatcher<Library> progress;
    connect(&progress, &QFutureWatcherBase::progressValueChanged, this,
            [this, &progress](int done) { showProgress(done, progress.progressMaximum()); });
    progress.setFuture(building);
    const Library built = co_await building;
    if (!self)
        co_return;
    canCancelIndexing.set(false);
    if (m_indexing.stop_requested()) {
        setNotice({localized("Analyse annulée. La bibliothèque reste comme elle était."), false});
        co_return;
    }
    publish(built);
    indexMessage.set(localized("Enregistrement…"));
    co_await saveIndex(nullptr);
}

void AppState::showProgress(int done, int total)
{
    if (done == 0) // nothing was reported yet
        return;
    indexProgress.set(total < 1 ? 0 : static_cast<double>(done) / total); // tells its observers of changes only
    indexMessage.set(localized("Analyse %1 / %2", {std::to_string(done), std::to_string(total)}));
}

// `stored` is what the index holds now, null where it is to be written in any case.
QCoro::Task<> AppState::saveIndex(std::shared_ptr<const LoadedLibrary> stored)
{
    const auto saving = QtConcurrent::run(&m_pool, [store = m_store, saved = library(), stored = std::move(stored)] {
        save(*store, *saved, stored.get());
    });
    co_await saving;
}

void AppState::publish(std::shared_ptr<const LoadedLibrary> loaded)
{
    m_counts.reset();
    m_languageCounts.reset();
    ++m_listRevision;
    const bool standsOn = m_glyphsInBackground && requiresGlyphs(); // readGlyphs() replaces it
    auto former = std::pair(library(), standsOn ? std::nullopt : std::exchange(m_visible, std::nullopt));
    library.set(std::move(loaded));
    m_pool.start([former = std::move(former)] {}); // freeing a hundred thousand records takes more than a frame
}

QCoro::Task<> AppState::refreshRegisteredFonts()
{
    if (m_store == nullptr)
        co_return;
    if (isIndexing() || m_isRefreshing) { // each publishes a library: one after the other
        m_registryRefresh.trigger();
        co_return;
    }
    const QPointer<AppState> self(this);
    const Library known = library();
    m_isRefreshing = true;
    const auto refreshing =
        QtConcurrent::run(&m_pool, [&catalog = m_catalog, known] { return refreshedLibrary(catalog, known->records); });
    const Library refreshed = co_await refreshing;
    if (!self)
        co_return;
    if (library() != known || isIndexing()) { // an index was built meanwhile: it is the newer one
        m_registryRefresh.trigger();
    } else if (refreshed != nullptr) {
        publish(refreshed);
        co_await saveIndex(known);
        if (!self)
            co_return;
    }
    m_isRefreshing = false;
}

} // namespace kerlune
