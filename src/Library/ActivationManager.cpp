#include "Library/ActivationManager.h"

#include "Library/StateFile.h"
#include "Support/JsonFile.h"
#include "Support/Localization.h"
#include "Support/Text.h"

#include <QCoroFuture>
#include <QPointer>
#include <QScopeGuard>
#include <QtConcurrentRun>

#include <algorithm>
#include <iterator>
#include <system_error>
#include <utility>

// A future is always named before it is awaited; see docs/decisions/0003-futures-are-named.md.

namespace kerlune {

namespace {

using Paths = ActivationManager::Paths;

// Absent when the file does not hold an array of texts.
std::optional<Paths> decodePaths(const std::optional<nlohmann::json> &content)
{
    if (!content || !content->is_array())
        return std::nullopt;
    Paths paths;
    for (const nlohmann::json &path : *content) {
        if (!path.is_string())
            return std::nullopt;
        if (const auto &text = path.get_ref<const std::string &>(); text.find('\0') == std::string::npos)
            paths.insert(text);
    }
    return paths;
}

// Those of the paths that the change concerns, each once.
std::vector<std::string> concerned(const std::vector<std::string> &paths, const Paths &active, bool areActive)
{
    Paths seen;
    std::vector<std::string> result;
    for (const std::string &path : paths) {
        if (active.contains(path) == areActive && seen.insert(path).second)
            result.push_back(path);
    }
    return result;
}

Paths existing(const Paths &paths)
{
    Paths kept;
    for (const std::string &path : paths) {
        if (std::error_code error; path.starts_with('/') && std::filesystem::exists(path, error))
            kept.insert(kept.end(), path);
    }
    return kept;
}

std::optional<std::string> save(const std::shared_ptr<StateFile> &file, const Paths &paths)
{
    const bool wasUnderstood = !file->exists() || decodePaths(file->content());
    return file->save(paths, wasUnderstood ? StateFile::Former::Replace : StateFile::Former::Keep);
}

} // namespace

ActivationManager::ActivationManager(FontRegistry &registry, const Directories &directories,
                                     std::chrono::milliseconds longestWait, QObject *parent)
    : QObject(parent)
    , m_registry(registry)
    , m_longestWait(longestWait)
    , m_file(directories.applicationSupport / "activation.json")
    , m_activePaths(decodePaths(readJsonFile(m_file)).value_or(Paths()))
{}

QCoro::Task<bool> ActivationManager::activate(std::vector<std::string> paths)
{
    return change(std::move(paths), Change::Activate);
}

QCoro::Task<bool> ActivationManager::deactivate(std::vector<std::string> paths)
{
    return change(std::move(paths), Change::Deactivate);
}

QCoro::Task<bool> ActivationManager::change(std::vector<std::string> paths, Change change)
{
    const QPointer<ActivationManager> self(this);
    const auto turn = co_await m_turns.turn();
    if (!self)
        co_return false;
    const auto opening = QtConcurrent::run(StateFile::open, m_file, m_longestWait);
    const std::shared_ptr<StateFile> file = co_await opening;
    const auto closing = qScopeGuard([file] { file->close(); }); // the future may keep it for a while
    if (!self)
        co_return false;
    if (refuseBecauseOf(file->obstacle()))
        co_return false;
    Paths active = decodePaths(file->content()).value_or(activePaths());
    const std::vector<std::string> wanted = concerned(paths, active, change == Change::Deactivate);
    if (wanted.empty()) {
        m_activePaths = std::move(active); // as another process left it
        co_return true;
    }

    const auto registering = change == Change::Activate ? m_registry.registerPersistently(wanted)
                                                        : m_registry.unregisterPersistently(wanted);
    FontRegistry::Errors errors = co_await registering;
    if (!self)
        co_return false;
    for (const std::string &path : wanted) {
        if (change == Change::Deactivate)
            active.erase(path);
        else if (isValidUtf8(path)) // another could not be written down
            active.insert(path);
    }
    const bool succeeded = errors.empty();
    note(std::move(errors));
    m_activePaths = active;
    const auto saving = QtConcurrent::run(save, file, active);
    auto saveError = co_await saving;
    if (self)
        m_saveError = std::move(saveError);
    co_return succeeded;
}

QCoro::Task<> ActivationManager::reapplyOnLaunch()
{
    const QPointer<ActivationManager> self(this);
    const auto turn = co_await m_turns.turn();
    if (!self)
        co_return;
    const auto opening = QtConcurrent::run(StateFile::open, m_file, m_longestWait);
    const std::shared_ptr<StateFile> file = co_await opening;
    const auto closing = qScopeGuard([file] { file->close(); }); // the future may keep it for a while
    if (!self)
        co_return;
    const auto asking = m_registry.persistentlyRegistered();
    const std::vector<std::string> registered = co_await asking;
    const std::optional<Paths> stored = decodePaths(file->content());
    const Paths saved = stored.value_or(Paths(registered.begin(), registered.end()));
    if (!self)
        co_return;
    if (refuseBecauseOf(file->obstacle())) {
        m_activePaths = saved;
        co_return;
    }
    const auto looking = QtConcurrent::run(existing, saved);
    const Paths kept = co_await looking;
    if (!self)
        co_return;
    m_activePaths = kept;

    // Links whose files are gone, or that a process made which did not live to write them down.
    std::vector<std::string> stale;
    std::set_difference(registered.begin(), registered.end(), kept.begin(), kept.end(), std::back_inserter(stale));
    FontRegistry::Errors errors;
    if (!stale.empty()) {
        const auto unregistering = m_registry.unregisterPersistently(stale);
        errors = co_await unregistering;
        if (!self)
            co_return;
    }
    if (!kept.empty()) {
        const auto registering = m_registry.registerPersistently({kept.begin(), kept.end()});
        FontRegistry::Errors more = co_await registering;
        if (!self)
            co_return;
        std::move(more.begin(), more.end(), std::back_inserter(errors));
    }
    note(std::move(errors));
    if (file->exists() && !stored)
        co_return; // the file is left alone until something is changed on purpose
    const bool isNeeded = file->exists() || !kept.empty();
    const auto saving = QtConcurrent::run(save, file, kept);
    auto saveError = co_await saving;
    if (self && isNeeded) // an empty list that cannot be written is no loss
        m_saveError = std::move(saveError);
}

QCoro::Task<> ActivationManager::reload()
{
    const QPointer<ActivationManager> self(this);
    const auto turn = co_await m_turns.turn();
    if (!self || m_saveError) // changes of this process that could not be written are not to be forgotten
        co_return;
    const auto reading = QtConcurrent::run([file = m_file] { return decodePaths(readJsonFile(file)); });
    auto stored = co_await reading;
    if (self && stored)
        m_activePaths = *std::move(stored);
}

// Links and list belong together: where another process keeps the list to itself, the links stay too.
bool ActivationManager::refuseBecauseOf(const std::optional<std::string> &obstacle)
{
    if (!obstacle)
        return false;
    m_failures.clear();
    m_lastError = obstacle;
    return true;
}

void ActivationManager::note(FontRegistry::Errors errors)
{
    m_lastError = describe(errors);
    m_failures = std::move(errors);
}

std::optional<std::string> ActivationManager::describe(const FontRegistry::Errors &errors)
{
    if (errors.empty())
        return std::nullopt;
    return localized("%1 (%2 fichiers)", {errors.front().description(), std::to_string(errors.size())});
}

} // namespace kerlune
