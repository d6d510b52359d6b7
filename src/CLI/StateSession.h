#pragma once

#include "CLI/Commands.h"
#include "CLI/NoEvents.h"
#include "Platform/FontCatalog.h"
#include "Platform/Linux/NoFrontApplication.h"
#include "State/AppState.h"

#include <memory>

namespace kerlune {

// The library and what the user made of it, as a command works on them. What cannot be opened, read or written is told
// on standard error.
//
// Thread: main.
class StateSession final {
public:
    // With the watched folders and what the user made, but without the fonts. Null, after a message, when the database
    // cannot be opened.
    static std::unique_ptr<StateSession> open(const CommandContext &context);

    AppState &state() { return m_state; }
    const AppState &state() const { return m_state; }

    // The fonts too; shows how far it has come. The index holds one face for each PostScript name: to keep the others,
    // the fonts are listed once more.
    void load(Duplicates duplicates);

    // Says that a command of the state could not write, and gives the exit status.
    int reportWriteFailure() const;

private:
    explicit StateSession(const CommandContext &context);

    const Directories &m_directories;
    NoEvents m_events;
    NoFrontApplication m_front;
    AppState m_state;
};

} // namespace kerlune
