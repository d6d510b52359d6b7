#include "UI/Preview/PreviewQueue.h"

#include "Support/BackgroundThread.h"
#include "UI/Preview/PreviewCache.h"
#include "UI/Preview/PreviewRenderer.h"

#include <QPointer>
#include <QThread>
#include <QThreadPool>

#include <algorithm>
#include <map>
#include <mutex>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace kerlune {

namespace {

struct RequestHash {
    std::size_t operator()(const PreviewRequest &request) const noexcept { return qHash(request); }
};

// What a view wants; those before `next` are there or are being drawn.
struct Wants {
    std::vector<PreviewRequest> requests = {};
    std::size_t next = 0;
    std::uint64_t turn = 0; // of its last question
};

} // namespace

struct PreviewQueue::Implementation {
    Implementation(PreviewQueue &queue, std::size_t byteLimit, Draw ownDraw)
        : owner(queue)
        , draw(std::move(ownDraw))
        , cache(byteLimit)
    {
        pool.setMaxThreadCount(std::max(1, QThread::idealThreadCount()));
    }

    // With the mutex held.
    void enqueue(Wants &wants);
    std::optional<PreviewRequest> takeNext();
    std::unique_ptr<PreviewRenderer> takeRenderer();
    void tellSoon();

    void work(); // on a worker, until nothing is wanted any more
    PreviewPointer drawn(const PreviewRequest &request, std::unique_lock<std::mutex> &lock);
    void tell(); // on the main thread

    PreviewQueue &owner;
    const Draw draw; // in place of a renderer's, where there is one

    mutable std::mutex mutex; // guards what follows
    PreviewCache cache;
    std::unordered_map<const QObject *, Wants> views;
    std::map<std::uint64_t, Wants *> waiting; // views with something left to draw, by their turns
    std::unordered_set<PreviewRequest, RequestHash> inHand;
    std::vector<std::unique_ptr<PreviewRenderer>> renderers; // at rest
    std::uint64_t lastTurn = 0;
    std::uint64_t generation = 0; // grows when all is forgotten
    int workers = 0;
    bool hasNews = false;   // previews that the views were not told of
    bool isTelling = false; // a call of tell() is on its way

    QThreadPool pool; // the last one: it waits for what still runs
};

PreviewQueue::PreviewQueue(std::size_t byteLimit, QObject *parent)
    : QObject(parent)
    , m_implementation(std::make_unique<Implementation>(*this, byteLimit, nullptr))
{}

PreviewQueue::PreviewQueue(std::size_t byteLimit, Draw draw)
    : m_implementation(std::make_unique<Implementation>(*this, byteLimit, std::move(draw)))
{}

PreviewQueue::~PreviewQueue()
{
    {
        const std::lock_guard lock(m_implementation->mutex);
        m_implementation->waiting.clear();
    }
    m_implementation->pool.waitForDone();
}

PreviewPointer PreviewQueue::find(const PreviewRequest &request)
{
    const std::lock_guard lock(m_implementation->mutex);
    return m_implementation->cache.find(request);
}

void PreviewQueue::setWanted(const QObject *view, std::vector<PreviewRequest> nearestFirst)
{
    Implementation &queue = *m_implementation;
    const std::lock_guard lock(queue.mutex);
    const auto [place, isNew] = queue.views.try_emplace(view);
    if (isNew)
        connect(view, &QObject::destroyed, this, [this, view] { forget(view); });
    Wants &wants = place->second;
    queue.waiting.erase(wants.turn);
    wants.requests = std::move(nearestFirst);
    wants.turn = ++queue.lastTurn;
    queue.enqueue(wants);
}

void PreviewQueue::forget(const QObject *view)
{
    const std::lock_guard lock(m_implementation->mutex);
    const auto gone = m_implementation->views.find(view);
    m_implementation->waiting.erase(gone->second.turn);
    m_implementation->views.erase(gone);
}

void PreviewQueue::clear()
{
    Implementation &queue = *m_implementation;
    const std::lock_guard lock(queue.mutex);
    ++queue.generation;
    queue.cache.clear();
    queue.renderers.clear();
    for (auto &[view, wants] : queue.views)
        queue.enqueue(wants);
}

bool PreviewQueue::isIdle() const
{
    const std::lock_guard lock(m_implementation->mutex);
    return m_implementation->workers == 0 && !m_implementation->isTelling;
}

std::size_t PreviewQueue::byteCount() const
{
    const std::lock_guard lock(m_implementation->mutex);
    return m_implementation->cache.byteCount();
}

void PreviewQueue::Implementation::enqueue(Wants &wants)
{
    wants.next = 0;
    auto missing = std::count_if(wants.requests.begin(), wants.requests.end(),
                                 [this](const PreviewRequest &request) { return !cache.contains(request); });
    if (missing == 0)
        return;
    waiting[wants.turn] = &wants;
    for (; missing > 0 && workers < pool.maxThreadCount(); --missing) {
        ++workers;
        pool.start([this] { work(); });
    }
}

std::optional<PreviewRequest> PreviewQueue::Implementation::takeNext()
{
    while (!waiting.empty()) {
        const auto last = std::prev(waiting.end());
        Wants &wants = *last->second;
        while (wants.next < wants.requests.size()) {
            const PreviewRequest &request = wants.requests[wants.next++];
            if (!cache.contains(request) && inHand.insert(request).second)
                return request;
        }
        waiting.erase(last);
    }
    return std::nullopt;
}

void PreviewQueue::Implementation::work()
{
    becomeBackgroundThread();
    std::unique_lock lock(mutex);
    while (const auto request = takeNext()) {
        PreviewPointer preview = drawn(*request, lock);
        inHand.erase(*request);
        cache.insert(*request, std::move(preview));
        hasNews = true;
        tellSoon();
    }
    --workers;
    tellSoon();
}

// Draws it again when everything was forgotten meanwhile: the file may be another one.
PreviewPointer PreviewQueue::Implementation::drawn(const PreviewRequest &request, std::unique_lock<std::mutex> &lock)
{
    for (;;) {
        const std::uint64_t drawnIn = generation;
        auto renderer = takeRenderer();
        lock.unlock();
        if (renderer == nullptr)
            renderer = std::make_unique<PreviewRenderer>();
        auto preview = std::make_shared<const Preview>(draw ? draw(request) : renderer->draw(request));
        lock.lock();
        if (drawnIn != generation)
            continue;
        renderers.push_back(std::move(renderer));
        return preview;
    }
}

std::unique_ptr<PreviewRenderer> PreviewQueue::Implementation::takeRenderer()
{
    if (renderers.empty())
        return nullptr;
    auto renderer = std::move(renderers.back());
    renderers.pop_back();
    return renderer;
}

void PreviewQueue::Implementation::tellSoon()
{
    if (!std::exchange(isTelling, true))
        QMetaObject::invokeMethod(
            &owner, [this] { tell(); }, Qt::QueuedConnection);
}

void PreviewQueue::Implementation::tell()
{
    std::unique_lock lock(mutex);
    isTelling = false;
    const bool tellsNews = std::exchange(hasNews, false);
    const bool tellsIdle = workers == 0;
    lock.unlock();
    const QPointer<PreviewQueue> queue(&owner);
    if (tellsNews)
        Q_EMIT queue->previewsReady();
    if (tellsIdle && queue && queue->isIdle())
        Q_EMIT queue->idle();
}

} // namespace kerlune
