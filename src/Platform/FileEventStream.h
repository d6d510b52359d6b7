#pragma once

#include <QObject>

#include <chrono>
#include <string>
#include <vector>

namespace kerlune {

// Tells that something changed in some folders or anywhere below them: files that came, went, moved or were written,
// subfolders included, those made later too. What changed is not said; look again.
//
// Thread: main.
// Errors: none. Where the system cannot follow a folder, the stream reports a change from time to time instead.
class FileEventStream : public QObject {
    Q_OBJECT

public:
    struct Tree {
        std::string path; // absolute
        // When the caller last began to look at it: a change between then and now is reported too.
        std::chrono::system_clock::time_point since;
    };

    using QObject::QObject;

    // Follows these trees from now on and lets all others go. One that is missing is followed when it appears.
    virtual void start(std::vector<Tree> trees) = 0;
    virtual void stop() = 0;

Q_SIGNALS:
    void started(); // the trees of the last start() are now followed whole
    void changed(); // the first change is reported at once, further ones at most once a second
};

} // namespace kerlune
