#include "Platform/Linux/InotifyEventStream.h"

#include "Support/Localization.h"

#include <QLoggingCategory>
#include <QString>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

namespace kerlune {

namespace {

Q_LOGGING_CATEGORY(fileEvents, "kerlune.fileevents")

void log(const std::string &message)
{
    qCWarning(fileEvents).noquote() << QString::fromStdString(message);
}

} // namespace

// The thread and what it holds. Its signals reach receivers on other threads through their event loops.
class InotifyEventStream::Worker final {
public:
    explicit Worker(InotifyEventStream &stream)
        : m_stream(stream)
        , m_options(stream.m_options)
        , m_tree(m_options.links, m_isEnding, m_options.mostWatches)
        , m_wakeDescriptor(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
        , m_thread([this] { run(); })
    {}

    ~Worker()
    {
        m_isEnding = true;
        wake();
        m_thread.join();
        close(m_wakeDescriptor);
    }

    Worker(const Worker &) = delete;
    Worker &operator=(const Worker &) = delete;

    void follow(std::vector<InotifyTree::Root> roots)
    {
        {
            const std::lock_guard lock(m_mutex);
            m_nextRoots = std::move(roots);
        }
        wake();
    }

private:
    using Clock = std::chrono::steady_clock;

    void run()
    {
        while (!m_isEnding) {
            waitForNews();
            takeNextRoots();
            readEvents();
            checkRoots();
            rescan();
            deliver();
        }
    }

    void wake() const
    {
        const std::uint64_t one = 1;
        [[maybe_unused]] const auto written = write(m_wakeDescriptor, &one, sizeof one); // fails only if awake already
    }

    void waitForNews() const
    {
        auto next = m_nextRootCheck;
        if (m_isDegraded)
            next = std::min(next, m_nextRescan);
        if (m_isPending)
            next = std::min(next, m_lastReport + m_options.latency);
        const auto wait = std::chrono::ceil<std::chrono::milliseconds>(next - Clock::now()).count();
        std::array<pollfd, 2> descriptors{{{m_wakeDescriptor, POLLIN, 0}, {m_tree.descriptor(), POLLIN, 0}}};
        poll(descriptors.data(), descriptors.size(), static_cast<int>(std::max<std::int64_t>(0, wait)));
        std::uint64_t calls = 0;
        [[maybe_unused]] const auto taken = read(m_wakeDescriptor, &calls, sizeof calls); // it never waits
    }

    void takeNextRoots()
    {
        std::optional<std::vector<InotifyTree::Root>> roots;
        {
            const std::lock_guard lock(m_mutex);
            roots = std::exchange(m_nextRoots, std::nullopt);
        }
        if (!roots)
            return;
        m_isPending = m_tree.follow(*std::move(roots)) || m_isPending;
        m_isDegraded = false;
        noteLimit();
        if (!m_isEnding)
            Q_EMIT m_stream.started();
    }

    void readEvents()
    {
        const InotifyTree::News news = m_tree.readEvents();
        m_isPending = m_isPending || news.changed;
        if (news.overflowed) {
            m_isDegraded = true;
            m_nextRescan = std::max(Clock::now(), m_lastRescan + m_options.latency);
            if (!std::exchange(m_hasLoggedOverflow, true))
                log(localized("Trop de changements à la fois dans les dossiers suivis : ils sont relus en entier."));
        }
        noteLimit();
    }

    void checkRoots()
    {
        if (Clock::now() < m_nextRootCheck)
            return;
        m_isPending = m_tree.checkRoots() || m_isPending;
        m_nextRootCheck = Clock::now() + m_options.rootCheck;
        noteLimit();
    }

    void rescan()
    {
        if (!m_isDegraded || Clock::now() < m_nextRescan)
            return;
        m_tree.walkAgain();
        m_isPending = true;
        m_lastRescan = Clock::now();
        m_isDegraded = false;
        noteLimit();
    }

    void noteLimit()
    {
        if (m_tree.isComplete() || m_isDegraded)
            return;
        m_isDegraded = true;
        m_nextRescan = Clock::now() + m_options.rescan;
        if (!std::exchange(m_hasLoggedLimit, true))
            log(localized("Trop de sous-dossiers pour les suivre tous (voir fs.inotify.max_user_watches) : ils sont "
                          "relus à intervalles réguliers."));
    }

    void deliver()
    {
        if (!m_isPending || Clock::now() < m_lastReport + m_options.latency || m_isEnding)
            return;
        m_isPending = false;
        m_lastReport = Clock::now();
        Q_EMIT m_stream.changed();
    }

    InotifyEventStream &m_stream;
    const Options m_options;
    std::atomic<bool> m_isEnding = false;
    std::mutex m_mutex;
    std::optional<std::vector<InotifyTree::Root>> m_nextRoots; // guarded by the mutex

    // The thread's own.
    InotifyTree m_tree;
    bool m_isPending = false;  // there is a change to report
    bool m_isDegraded = false; // the trees are to be walked again
    bool m_hasLoggedOverflow = false;
    bool m_hasLoggedLimit = false;
    Clock::time_point m_lastReport = Clock::now() - m_options.latency;
    Clock::time_point m_lastRescan = Clock::now() - m_options.latency;
    Clock::time_point m_nextRootCheck = Clock::now() + m_options.rootCheck;
    Clock::time_point m_nextRescan;

    int m_wakeDescriptor;
    std::thread m_thread; // last: it uses all the others
};

InotifyEventStream::InotifyEventStream(const Options &options, QObject *parent)
    : FileEventStream(parent)
    , m_options(options)
{}

InotifyEventStream::~InotifyEventStream() = default;

void InotifyEventStream::start(std::vector<Tree> trees)
{
    if (trees.empty()) {
        stop();
        return;
    }
    if (m_worker == nullptr)
        m_worker = std::make_unique<Worker>(*this);
    std::vector<InotifyTree::Root> roots;
    roots.reserve(trees.size());
    for (Tree &tree : trees)
        roots.push_back({std::move(tree.path), tree.since});
    m_worker->follow(std::move(roots));
}

void InotifyEventStream::stop()
{
    m_worker.reset();
}

} // namespace kerlune
