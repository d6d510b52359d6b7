#include "Platform/Linux/InotifyTree.h"

#include "Support/Handle.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

namespace kerlune {

namespace {

constexpr std::uint32_t kEvents = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_MODIFY | IN_CLOSE_WRITE |
                                  IN_ATTRIB | IN_DELETE_SELF | IN_MOVE_SELF;
constexpr std::size_t kBufferSize = 64U << 10;

// Times in a file system come from the kernel's coarse clock, which runs behind by up to one tick.
constexpr std::chrono::milliseconds kClockSlack{20};

std::string join(const std::string &folder, std::string_view name)
{
    std::string path = folder;
    if (!path.ends_with('/'))
        path += '/';
    return path.append(name);
}

std::chrono::system_clock::time_point timeOf(const timespec &time)
{
    return std::chrono::system_clock::time_point(std::chrono::duration_cast<std::chrono::system_clock::duration>(
        std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec)));
}

} // namespace

InotifyTree::InotifyTree(Links links, const std::atomic<bool> &stopping, std::size_t mostWatches)
    : m_links(links)
    , m_stopping(stopping)
    , m_mostWatches(mostWatches)
    , m_descriptor(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    , m_isComplete(m_descriptor >= 0)
{}

InotifyTree::~InotifyTree()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

bool InotifyTree::follow(std::vector<Root> roots)
{
    m_roots.clear();
    for (Root &root : roots)
        m_roots.push_back({std::move(root)});
    m_isComplete = m_descriptor >= 0;

    bool changed = false;
    Walk whole;
    for (RootState &state : m_roots) {
        readIdentity(state);
        whole.newest.reset();
        state.watch = walk(state.root.path, whole);
        changed = changed || (whole.newest && *whole.newest + kClockSlack >= state.root.since);
    }
    std::vector<int> unwanted;
    for (const auto &[watch, path] : m_paths) {
        if (!whole.visited.contains(watch))
            unwanted.push_back(watch);
    }
    for (const int watch : unwanted) {
        inotify_rm_watch(m_descriptor, watch);
        forget(watch);
    }
    return changed;
}

void InotifyTree::walkAgain()
{
    std::vector<Root> roots;
    for (RootState &state : m_roots)
        roots.push_back(std::move(state.root));
    follow(std::move(roots));
}

int InotifyTree::walk(const std::string &top, Walk &walk)
{
    std::vector<std::string> waiting;
    const int watch = visit(top, walk, waiting);
    while (!waiting.empty() && !m_stopping) {
        const std::string folder = std::move(waiting.back());
        waiting.pop_back();
        visit(folder, walk, waiting);
    }
    return watch;
}

// The watch comes before the look inside, so that what is made in between is at least in one of the two.
int InotifyTree::visit(const std::string &folder, Walk &walk, std::vector<std::string> &subfolders)
{
    if (m_paths.size() >= m_mostWatches && !m_watches.contains(folder)) {
        m_isComplete = false;
        return -1;
    }
    const std::uint32_t links = m_links == Links::Leave && !isRoot(folder) ? IN_DONT_FOLLOW : 0;
    const int watch =
        m_descriptor < 0 ? -1 : inotify_add_watch(m_descriptor, folder.c_str(), kEvents | IN_ONLYDIR | links);
    if (watch < 0) {
        // A folder that is gone or that may not be read has nothing to follow; anything else is a limit.
        m_isComplete = m_isComplete && (errno == ENOENT || errno == EACCES || errno == ENOTDIR || errno == ELOOP ||
                                        errno == ENAMETOOLONG);
        return -1;
    }
    if (!walk.visited.insert(watch).second)
        return watch; // reached by another link, or a root below a root
    remember(watch, folder);

    const Handle<DIR, closedir> directory(opendir(folder.c_str()));
    if (directory == nullptr)
        return watch;
    const int descriptor = dirfd(directory.get());
    struct stat status = {};
    if (fstat(descriptor, &status) == 0)
        walk.newest = std::max(walk.newest.value_or(timeOf(status.st_ctim)), timeOf(status.st_ctim));
    while (const dirent *entry = readdir(directory.get())) { // NOLINT(concurrency-mt-unsafe): one stream, one thread
        if (entry->d_name[0] != '.' && isSubfolder(descriptor, entry->d_name, entry->d_type))
            subfolders.push_back(join(folder, entry->d_name));
    }
    return watch;
}

bool InotifyTree::isSubfolder(int parent, const char *name, unsigned char type) const
{
    if (type == DT_DIR)
        return true;
    if (type != DT_UNKNOWN && (type != DT_LNK || m_links == Links::Leave))
        return false;
    struct stat status = {};
    const int flags = m_links == Links::Leave ? AT_SYMLINK_NOFOLLOW : 0;
    return fstatat(parent, name, &status, flags) == 0 && S_ISDIR(status.st_mode);
}

void InotifyTree::remember(int watch, const std::string &path)
{
    std::string &known = m_paths[watch];
    if (known == path)
        return;
    if (!known.empty())
        m_watches.erase(known);
    known = path;
    m_watches[path] = watch;
}

void InotifyTree::forget(int watch)
{
    const auto known = m_paths.find(watch);
    if (known == m_paths.end())
        return;
    if (const auto byPath = m_watches.find(known->second); byPath != m_watches.end() && byPath->second == watch)
        m_watches.erase(byPath);
    m_paths.erase(known);
}

void InotifyTree::leaveTree(const std::string &top)
{
    const std::string below = join(top, "");
    std::vector<int> leaving;
    if (const auto itself = m_watches.find(top); itself != m_watches.end())
        leaving.push_back(itself->second);
    for (auto at = m_watches.lower_bound(below); at != m_watches.end() && at->first.starts_with(below); ++at)
        leaving.push_back(at->second);
    for (const int watch : leaving) {
        inotify_rm_watch(m_descriptor, watch);
        forget(watch);
    }
}

InotifyTree::News InotifyTree::readEvents()
{
    News news;
    alignas(inotify_event) std::array<char, kBufferSize> buffer{};
    const ssize_t size = m_descriptor < 0 ? 0 : read(m_descriptor, buffer.data(), buffer.size());
    for (ssize_t at = 0; at + static_cast<ssize_t>(sizeof(inotify_event)) <= size;) {
        inotify_event event = {};
        std::memcpy(&event, buffer.data() + at, sizeof event);
        const char *name = buffer.data() + at + sizeof event;
        handle(event.wd, event.mask, std::string_view(name, strnlen(name, event.len)), news);
        at += static_cast<ssize_t>(sizeof event + event.len);
    }
    return news;
}

void InotifyTree::handle(int watch, std::uint32_t mask, std::string_view name, News &news)
{
    if ((mask & IN_Q_OVERFLOW) != 0) {
        news.overflowed = true;
        return;
    }
    const auto known = m_paths.find(watch);
    if (known == m_paths.end())
        return; // of a folder that was left meanwhile
    news.changed = true;
    const std::string folder = known->second;
    if ((mask & IN_IGNORED) != 0) {
        forget(watch);
        return;
    }
    // A watch follows its folder, and a walk may have found it under its new name before the events of the move are
    // read. So an event says only where to look; what is there now counts.
    if ((mask & IN_MOVE_SELF) != 0) {
        leaveTree(folder);
        lookAgain(folder);
        return;
    }
    if (name.empty() || name.front() == '.')
        return;
    const std::string path = join(folder, name);
    if ((mask & IN_MOVED_FROM) != 0)
        leaveTree(path);
    const bool mayBeFolder = (mask & IN_ISDIR) != 0 || isSubfolder(AT_FDCWD, path.c_str(), DT_LNK);
    if (mayBeFolder && (mask & (IN_CREATE | IN_MOVED_FROM | IN_MOVED_TO | IN_ATTRIB)) != 0)
        lookAgain(path);
}

void InotifyTree::lookAgain(const std::string &folder)
{
    Walk one;
    walk(folder, one);
}

bool InotifyTree::isRoot(const std::string &folder) const
{
    return std::any_of(m_roots.begin(), m_roots.end(),
                       [&](const RootState &state) { return state.root.path == folder; });
}

bool InotifyTree::checkRoots()
{
    bool changed = false;
    for (RootState &state : m_roots) {
        const bool isAnother = readIdentity(state);
        if (!isAnother && (state.inode == 0 || m_paths.contains(state.watch) || !m_isComplete))
            continue;
        if (const auto known = m_paths.find(state.watch); known != m_paths.end())
            leaveTree(std::string(known->second));
        Walk one;
        state.watch = state.inode == 0 ? -1 : walk(state.root.path, one);
        changed = changed || isAnother || state.watch >= 0;
    }
    return changed;
}

bool InotifyTree::readIdentity(RootState &state) const
{
    struct stat status = {};
    const bool exists = stat(state.root.path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
    const std::uint64_t device = exists ? status.st_dev : 0;
    const std::uint64_t inode = exists ? status.st_ino : 0;
    const bool isAnother = state.device != device || state.inode != inode;
    state.device = device;
    state.inode = inode;
    return isAnother;
}

} // namespace kerlune
