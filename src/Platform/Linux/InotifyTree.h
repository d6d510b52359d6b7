#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace kerlune {

// Follows whole folder trees with inotify(7), which knows single folders only. Hidden subfolders are left out.
//
// Thread: one at a time. Every call may read folders, and so block.
class InotifyTree final {
public:
    enum class Links {
        Leave,  // a link to a folder is a file
        Follow, // what lies behind it belongs to the tree
    };

    struct Root {
        std::string path;
        std::chrono::system_clock::time_point since = std::chrono::system_clock::time_point::max();
    };

    struct News {
        bool changed = false;    // something in the trees did
        bool overflowed = false; // the kernel dropped events
    };

    // `stopping`, set by any thread, ends a long walk early.
    InotifyTree(Links links, const std::atomic<bool> &stopping,
                std::size_t mostWatches = std::numeric_limits<std::size_t>::max());
    ~InotifyTree();
    InotifyTree(const InotifyTree &) = delete;
    InotifyTree &operator=(const InotifyTree &) = delete;

    int descriptor() const { return m_descriptor; } // readable when there is something to read; −1 without inotify

    // Follows these trees instead of those before. Says whether a folder in them changed since the root's time.
    bool follow(std::vector<Root> roots);

    // Walks all trees again, after events were lost or watches were missing.
    void walkAgain();

    // Whether every folder that can be read has its watch. Where not, the user's watches are used up
    // (/proc/sys/fs/inotify/max_user_watches) or inotify itself is not to be had.
    bool isComplete() const { return m_isComplete; }
    std::size_t watchCount() const { return m_paths.size(); }

    // Reads the events that wait, without waiting for more, and follows the folders that came.
    News readEvents();

    // Looks whether roots came, went or were replaced, of which inotify does not tell: a folder above was renamed, a
    // volume was mounted. Says whether one did.
    bool checkRoots();

private:
    struct RootState {
        Root root;
        std::uint64_t device = 0;
        std::uint64_t inode = 0; // 0 while the root is missing
        int watch = -1;          // roots that are one folder share a watch
    };
    struct Walk {
        std::unordered_set<int> visited;                                            // watches
        std::optional<std::chrono::system_clock::time_point> newest = std::nullopt; // change of a folder
    };

    int walk(const std::string &top, Walk &walk); // the watch of `top`, −1 without
    int visit(const std::string &folder, Walk &walk, std::vector<std::string> &subfolders);
    bool isSubfolder(int parent, const char *name, unsigned char type) const;
    void remember(int watch, const std::string &path);
    void forget(int watch);
    void leaveTree(const std::string &top);
    bool readIdentity(RootState &state) const; // says whether it changed

    bool isRoot(const std::string &folder) const;
    void lookAgain(const std::string &folder); // whatever it is now
    void handle(int watch, std::uint32_t mask, std::string_view name, News &news);

    Links m_links;
    const std::atomic<bool> &m_stopping;
    std::size_t m_mostWatches;
    int m_descriptor;
    bool m_isComplete = true;
    std::vector<RootState> m_roots;
    std::unordered_map<int, std::string> m_paths; // by watch
    std::map<std::string, int> m_watches;         // by path, so that a tree is a range
};

} // namespace kerlune
