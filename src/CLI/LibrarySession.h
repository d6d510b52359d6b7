#pragma once

#include "CLI/Commands.h"
#include "Library/ActivationManager.h"
#include "Library/FolderLibrary.h"

#include <QCoreApplication>
#include <QCoroTask>

#include <memory>
#include <string>

namespace kerlune {

class FileEventStream;

// Runs the event loop until an operation has ended.
template <typename T>
T await(QCoro::Task<T> task)
{
    struct Cleaning {
        ~Cleaning() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
    } const cleaning; // futures that were awaited are deleted by the event loop, which may not run again
    return QCoro::waitFor(std::move(task));
}

// The watched folders and active fonts as a command works on them. What cannot be read or written is told on standard
// error.
//
// Thread: main.
class LibrarySession final {
public:
    explicit LibrarySession(const CommandContext &context);
    ~LibrarySession();
    LibrarySession(const LibrarySession &) = delete;
    LibrarySession &operator=(const LibrarySession &) = delete;

    ActivationManager &activation() { return m_activation; }
    FolderLibrary &folders() { return m_folders; }

    // Brings the registrations in line with what is active, and tells which files failed. False when another process
    // kept it from changing anything.
    [[nodiscard]] bool reapply();
    // The same, then looks into every watched folder, so that this process can use what is there.
    [[nodiscard]] bool load();

    // Tells what the activation could not do the last time.
    void reportFailures() const;
    // Tells what could not be written, if anything; says whether all was.
    bool reportSaveErrors() const;

private:
    std::unique_ptr<FileEventStream> m_noEvents; // a command is too short to follow anything
    ActivationManager m_activation;
    FolderLibrary m_folders;
};

} // namespace kerlune
