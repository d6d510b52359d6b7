#pragma once

#include "Platform/Directories.h"
#include "Platform/FontRegistry.h"
#include "Support/AsyncLock.h"

#include <QBindable>
#include <QCoroTask>
#include <QProperty>

#include <chrono>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace kerlune {

// Shows font files to every program of the user, or no longer, and remembers which in activation.json. Other processes
// may do the same at the same time: each change is made, under a lock, to what the file says at that moment.
//
// Thread: main. The operations take their turns in the order of the calls.
// Errors: files that fail are told in lastError(); they count as active (or not) all the same. Nothing is changed while
// another process holds activation.json for more than ten seconds; lastError() then says so.
class ActivationManager final : public QObject {
    Q_OBJECT

public:
    using Paths = std::set<std::string>; // absolute

    // Reads activation.json. The registry must outlive the manager. The wait is for other processes.
    ActivationManager(FontRegistry &registry, const Directories &directories,
                      std::chrono::milliseconds longestWait = std::chrono::seconds(10), QObject *parent = nullptr);

    // The files that this library has activated.
    const Paths &activePaths() const { return m_activePaths.value(); }
    QBindable<Paths> bindableActivePaths() { return &m_activePaths; }

    // What the last call to the registry could not do, or why it was not called; absent when it did all.
    const std::optional<std::string> &lastError() const { return m_lastError.value(); }
    QBindable<std::optional<std::string>> bindableLastError() { return &m_lastError; }
    const FontRegistry::Errors &failures() const { return m_failures; } // the same, file by file

    // Why activation.json could not be written the last time. What was changed is then forgotten with the process.
    const std::optional<std::string> &saveError() const { return m_saveError; }

    // True when every file is now as wanted. Files that are so already are passed over.
    QCoro::Task<bool> activate(std::vector<std::string> paths);
    QCoro::Task<bool> deactivate(std::vector<std::string> paths);

    // At the start: forgets the files that are gone, and brings the registrations in line with the others. Where
    // activation.json is missing or unreadable, the registrations themselves say what is active.
    QCoro::Task<> reapplyOnLaunch();

    // Takes over what other processes activated or deactivated.
    QCoro::Task<> reload();

    // "…first error… (3 fichiers)"; absent without errors.
    static std::optional<std::string> describe(const FontRegistry::Errors &errors);

private:
    enum class Change { Activate, Deactivate };

    QCoro::Task<bool> change(std::vector<std::string> paths, Change change);
    void note(FontRegistry::Errors errors);
    bool refuseBecauseOf(const std::optional<std::string> &obstacle);

    FontRegistry &m_registry;
    std::chrono::milliseconds m_longestWait;
    std::filesystem::path m_file;
    AsyncLock m_turns;
    QProperty<Paths> m_activePaths;
    QProperty<std::optional<std::string>> m_lastError;
    FontRegistry::Errors m_failures;
    std::optional<std::string> m_saveError;
};

} // namespace kerlune
