#pragma once

#include "Platform/FileEventStream.h"
#include "Platform/Linux/InotifyTree.h"

#include <limits>
#include <memory>

namespace kerlune {

// Follows folders with inotify, on a thread of its own.
//
// When events were lost, or when the user's watches do not suffice, the trees are walked again and a change is
// reported, at intervals until every folder is followed; the log says so once.
//
// Thread: main.
class InotifyEventStream final : public FileEventStream {
    Q_OBJECT

public:
    struct Options {
        InotifyTree::Links links = InotifyTree::Links::Leave;
        std::size_t mostWatches = std::numeric_limits<std::size_t>::max(); // of all trees; the system has its own limit
        std::chrono::milliseconds latency{1'000};                          // between two reports
        std::chrono::milliseconds rootCheck{2'000};                        // looks for roots that came or went
        std::chrono::milliseconds rescan{30'000}; // reports while the trees are not followed whole
    };

    explicit InotifyEventStream(const Options &options, QObject *parent = nullptr);
    ~InotifyEventStream() override;

    void start(std::vector<Tree> trees) override;
    void stop() override;

private:
    class Worker;

    Options m_options;
    std::unique_ptr<Worker> m_worker; // while there is something to follow
};

} // namespace kerlune
