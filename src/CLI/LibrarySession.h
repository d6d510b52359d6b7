#pragma once

#include "CLI/Await.h"
#include "CLI/Commands.h"
#include "CLI/NoEvents.h"
#include "Library/ActivationManager.h"
#include "Library/FolderLibrary.h"

namespace kerlune {

// Tells when the list of watched folders cannot be read.
void reportUnreadableList(const FolderLibrary &folders);
// Tells what could not be written, if anything; says whether all was.
bool reportSaveErrors(const ActivationManager &activation, const FolderLibrary &folders);

// The watched folders and active fonts as a command works on them. What cannot be read or written is told on standard
// error.
//
// Thread: main.
class LibrarySession final {
public:
    explicit LibrarySession(const CommandContext &context);

    ActivationManager &activation() { return m_activation; }
    FolderLibrary &folders() { return m_folders; }

    // Brings the registrations in line with what is active, and tells which files failed. False when another process
    // kept it from changing anything.
    [[nodiscard]] bool reapply();
    // The same, then looks into every watched folder, so that this process can use what is there.
    [[nodiscard]] bool load();

    // Tells what the activation could not do the last time.
    void reportFailures() const;
    bool reportSaveErrors() const { return kerlune::reportSaveErrors(m_activation, m_folders); }

private:
    NoEvents m_events;
    ActivationManager m_activation;
    FolderLibrary m_folders;
};

} // namespace kerlune
