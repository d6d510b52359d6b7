#include "Library/FolderLibrary.h"

#include "Library/ActivationManager.h"
#include "Library/FolderScan.h"
#include "Library/WatchedFolderList.h"
#include "Platform/FileEventStream.h"
#include "Platform/FontRegistry.h"
#include "Support/JsonFile.h"
#include "Support/Localization.h"
#include "Support/Uuid.h"

#include <QCoroFuture>
#include <QPointer>
#include <QtConcurrentRun>

#include <algorithm>
#include <iterator>
#include <system_error>
#include <utility>

// A future is always named before it is awaited; see docs/decisions/0003-futures-are-named.md.

namespace kerlune {

namespace {

namespace fs = std::filesystem;
using Files = FolderLibrary::Files;

bool isFolder(const std::string &path)
{
    std::error_code error;
    return fs::is_directory(path, error);
}

// Null when there is no such folder.
Files scan(const std::string &folder, const fs::path &leftOut, const std::stop_token &stop)
{
    return isFolder(folder) ? std::make_shared<const std::vector<std::string>>(scanFolder(folder, leftOut, stop))
                            : nullptr;
}

// The folders that the system shows to every program anyway, also by the names that links in their paths lead to.
std::vector<std::string> systemFolders(const Directories &directories)
{
    std::vector<std::string> folders{
        "/System/Library/Fonts",     "/Library/Fonts",         directories.home / "Library/Fonts",
        "/usr/share/fonts",          "/usr/local/share/fonts", userFontsFolder(directories),
        directories.home / ".fonts",
    };
    const std::size_t count = folders.size();
    for (std::size_t i = 0; i < count; ++i)
        folders.push_back(normalisedPath(folders[i]));
    return folders;
}

std::string displayName(const WatchedFolder &folder)
{
    if (folder.isManagedLibrary)
        return localized("Bibliothèque Kerlune");
    const std::string name = fs::path(folder.path).filename();
    return name.empty() ? folder.path : name; // "/" has none
}

template <typename Folders>
auto findByPath(Folders &folders, const std::string &path)
{
    return std::find_if(folders.begin(), folders.end(),
                        [&](const WatchedFolder &folder) { return folder.path == path; });
}

template <typename Folders>
auto findById(Folders &folders, const std::string &id)
{
    return std::find_if(folders.begin(), folders.end(), [&](const WatchedFolder &folder) { return folder.id == id; });
}

} // namespace

std::string FolderLibrary::AddError::description() const
{
    switch (kind) {
    case Case::alreadyWatched:
        return localized("Ce dossier est déjà surveillé.");
    case Case::systemFolder:
        return localized("Les dossiers de polices du système sont déjà gérés par macOS.");
    case Case::empty:
        return localized("Aucune police (OTF, TTF, TTC, DFONT) dans ce dossier.");
    case Case::nested:
        return localized("Ce dossier est déjà couvert par « %1 ».", {name});
    }
    return {};
}

FolderLibrary::FolderLibrary(ActivationManager &activation, FontRegistry &registry, FileEventStream &stream,
                             const Directories &directories, std::chrono::milliseconds rescanDelay, QObject *parent)
    : QObject(parent)
    , m_activation(activation)
    , m_registry(registry)
    , m_stream(stream)
    , m_listFile(directories.applicationSupport / "watched-folders.json")
    , m_journalFile(directories.applicationSupport / "migration-manifest.json")
    , m_managedLibrary(normalisedPath(managedLibrary(directories)))
    , m_activationLinks(normalisedPath(activationLinksFolder(directories)))
    , m_systemFolders(systemFolders(directories))
    , m_rescan(rescanDelay, [this] { rescanAll(); })
{
    auto stored = readFolderList(m_listFile);
    std::error_code error;
    m_isListUnreadable = !stored && fs::exists(m_listFile, error);
    m_folders = std::move(stored).value_or(Folders());
    connect(&m_stream, &FileEventStream::changed, this, [this] { m_rescan.trigger(); });
}

FolderLibrary::~FolderLibrary()
{
    m_stop.request_stop();
    m_stream.stop();
}

std::optional<WatchedFolder> FolderLibrary::folder(const std::string &id) const
{
    const auto found = findById(folders(), id);
    return found == folders().end() ? std::nullopt : std::optional(*found);
}

std::optional<WatchedFolder> FolderLibrary::folderContaining(const std::string &path) const
{
    const auto found = std::find_if(folders().begin(), folders().end(),
                                    [&](const WatchedFolder &folder) { return isBelow(path, folder.path); });
    return found == folders().end() ? std::nullopt : std::optional(*found);
}

bool FolderLibrary::isInFolder(const std::string &path) const
{
    return std::any_of(folders().begin(), folders().end(),
                       [&](const WatchedFolder &folder) { return isBelow(path, folder.path); });
}

auto FolderLibrary::add(fs::path path) -> QCoro::Task<tl::expected<std::int64_t, AddError>>
{
    const QPointer<FolderLibrary> self(this);
    const std::string added = normalisedPath(path);
    if (const auto refused = refusal(added))
        co_return tl::unexpected(*refused);
    const std::set<std::string> known = ids();
    m_scanTimes[added] = std::chrono::system_clock::now();
    const auto scanning = QtConcurrent::run(scan, added, m_activationLinks, m_stop.get_token());
    const Files found = co_await scanning;
    if (!self || found == nullptr || found->empty())
        co_return tl::unexpected(AddError{AddError::Case::empty});

    // Meanwhile the list may have changed.
    const auto turn = co_await m_changeTurns.turn();
    if (!self)
        co_return tl::unexpected(AddError{AddError::Case::empty});
    WatchedFolder folder{newUuid(), added};
    std::vector<std::string> orphans;
    std::set<std::string> absorbed;
    if (isListed(added))
        co_return tl::unexpected(AddError{AddError::Case::alreadyWatched});
    for (const WatchedFolder &other : folders()) {
        const bool isAround = isBelow(added, other.path);
        const bool isNewInside = isBelow(other.path, added) && !known.contains(other.id);
        if (other.isManagedLibrary || !(isAround || isNewInside))
            continue;
        absorbed.insert(other.id);
        folder.autoActivate = folder.autoActivate || other.autoActivate;
        if (const auto files = this->files().find(other.id); files != this->files().end())
            orphans.insert(orphans.end(), files->second->begin(), files->second->end());
        dropFiles(other.id);
    }
    const Edit addition = [folder, absorbed](Folders &list) {
        std::erase_if(list, [&](const WatchedFolder &other) { return absorbed.contains(other.id); });
        if (findByPath(list, folder.path) == list.end()) // another process may have added it just now
            list.push_back(folder);
    };
    co_await edit(addition);
    if (!self)
        co_return tl::unexpected(AddError{AddError::Case::empty});
    if (const auto entry = findByPath(folders(), added); entry != folders().end())
        folder.id = entry->id;
    co_await apply(found, folder.id);
    if (!self)
        co_return tl::unexpected(AddError{AddError::Case::empty});
    orphans = withoutThoseOfOthers(orphans, {});
    if (!orphans.empty())
        co_await retire(orphans);
    if (!self)
        co_return tl::unexpected(AddError{AddError::Case::empty});
    startMonitoring();
    co_return static_cast<std::int64_t>(found->size());
}

auto FolderLibrary::refusal(const std::string &path) const -> std::optional<AddError>
{
    for (const std::string &folder : m_systemFolders) {
        if (path == folder || isBelow(path, folder))
            return AddError{AddError::Case::systemFolder};
    }
    if (isListed(path))
        return AddError{AddError::Case::alreadyWatched};
    if (const auto around = folderContaining(path))
        return AddError{AddError::Case::nested, displayName(*around)};
    return std::nullopt;
}

QCoro::Task<> FolderLibrary::remove(std::string id)
{
    const QPointer<FolderLibrary> self(this);
    const auto turn = co_await m_changeTurns.turn();
    if (!self)
        co_return;
    const auto leaving = folder(id);
    if (!leaving || leaving->isManagedLibrary)
        co_return;
    if (const auto listed = files().find(id); listed != files().end()) {
        const std::vector<std::string> own = withoutThoseOfOthers(*listed->second, id);
        co_await retire(own);
    }
    if (!self)
        co_return;
    const Edit removal = [id](Folders &list) {
        std::erase_if(list, [&](const WatchedFolder &other) { return other.id == id; });
    };
    auto saving = edit(removal); // the folder leaves the list here at once, before anybody hears of it
    dropFiles(id);
    m_revision = revision() + 1;
    co_await saving;
    if (self)
        startMonitoring();
}

QCoro::Task<> FolderLibrary::setAutoActivate(std::string id, bool on)
{
    const QPointer<FolderLibrary> self(this);
    const auto turn = co_await m_changeTurns.turn();
    if (!self || !folder(id))
        co_return;
    const Edit setFlag = [id, on](Folders &list) {
        if (const auto found = findById(list, id); found != list.end())
            found->autoActivate = on;
    };
    Folders all = folders(); // the managed library has a flag too, though no place in the file
    setFlag(all);
    m_folders = std::move(all);
    co_await edit(setFlag);
    if (!self || !on || !folder(id)) // another process may have removed it
        co_return;
    if (const auto listed = files().find(id); listed != files().end())
        co_await m_activation.activate(*listed->second);
}

void FolderLibrary::refreshManagedLibraryEntry()
{
    const auto journal = readJsonFile(m_journalFile);
    const bool hasEntries = journal && journal->is_array() && !journal->empty();
    const bool isListed = withoutManagedLibrary().size() != folders().size();
    if (hasEntries == isListed)
        return;
    Folders list = withoutManagedLibrary();
    if (hasEntries)
        list.insert(list.begin(), WatchedFolder{kManagedLibraryId, m_managedLibrary, false, true});
    m_folders = std::move(list);
    forgetFilesOfMissingFolders();
}

QCoro::Task<> FolderLibrary::rescanAll()
{
    const QPointer<FolderLibrary> self(this);
    ++m_rescans;
    m_isScanning = true;
    const auto turn = co_await m_rescanTurns.turn();
    if (self)
        co_await reload();
    const Folders list = self ? folders() : Folders();
    for (const WatchedFolder &listed : list) {
        m_scanTimes[listed.path] = std::chrono::system_clock::now();
        const auto scanning = QtConcurrent::run(scan, listed.path, m_activationLinks, m_stop.get_token());
        const Files found = co_await scanning;
        if (!self)
            co_return;
        if (found == nullptr)
            continue;
        const auto change = co_await m_changeTurns.turn();
        if (!self)
            co_return;
        co_await apply(found, listed.id);
        if (!self)
            co_return;
    }
    if (!self)
        co_return;
    m_isScanning = --m_rescans > 0;
    if (m_monitored && *m_monitored != foldersOnDisk())
        startMonitoring(); // one has returned, or another process changed the list
}

void FolderLibrary::startMonitoring()
{
    m_monitored = foldersOnDisk();
    std::vector<FileEventStream::Tree> trees;
    for (const std::string &path : *m_monitored) {
        const auto scanned = m_scanTimes.find(path);
        trees.push_back({path, scanned == m_scanTimes.end() ? std::chrono::system_clock::now() : scanned->second});
    }
    if (trees.empty())
        m_stream.stop();
    else
        m_stream.start(std::move(trees));
}

// What the scan of a folder brought, if the folder is still in the list.
QCoro::Task<> FolderLibrary::apply(Files scanned, std::string id)
{
    const QPointer<FolderLibrary> self(this);
    const auto listed = folder(id);
    if (!listed)
        co_return;
    const auto known = files().find(id);
    const Files old = known == files().end() ? std::make_shared<const std::vector<std::string>>() : known->second;
    ScanChanges changes = changesBetween(*old, *scanned);
    std::erase_if(changes.added, [this](const std::string &path) { return m_previewRegistered.contains(path); });

    if (!changes.removed.empty())
        co_await retire(changes.removed);
    if (!self)
        co_return;
    if (!changes.added.empty()) {
        m_registry.registerForProcess(changes.added);
        m_previewRegistered.insert(changes.added.begin(), changes.added.end());
        if (listed->autoActivate)
            co_await m_activation.activate(changes.added);
    }
    if (!self)
        co_return;
    FilesById all = files();
    all[id] = scanned; // also when the folder left the list meanwhile: then its files are forgotten below
    m_files = std::move(all);
    if (!changes.added.empty() || !changes.removed.empty() || old->empty())
        m_revision = revision() + 1;
    if (!folder(id))
        forgetFilesOfMissingFolders();
}

// Files that the library no longer holds.
QCoro::Task<> FolderLibrary::retire(std::vector<std::string> paths)
{
    const QPointer<FolderLibrary> self(this);
    co_await m_activation.deactivate(paths);
    if (!self)
        co_return;
    std::erase_if(paths, [this](const std::string &path) { return m_previewRegistered.erase(path) == 0; });
    if (!paths.empty())
        m_registry.unregisterForProcess(paths);
}

// A folder may lie in another one; what the other still lists, it keeps.
std::vector<std::string> FolderLibrary::withoutThoseOfOthers(const std::vector<std::string> &paths,
                                                             const std::string &id) const
{
    std::vector<std::string> own;
    std::copy_if(paths.begin(), paths.end(), std::back_inserter(own), [&](const std::string &path) {
        return std::none_of(files().begin(), files().end(), [&](const auto &other) {
            return other.first != id && std::binary_search(other.second->begin(), other.second->end(), path);
        });
    });
    return own;
}

QCoro::Task<> FolderLibrary::edit(Edit edit)
{
    const QPointer<FolderLibrary> self(this);
    const Folders before = withoutManagedLibrary();
    Folders mine = before;
    edit(mine);
    publish(mine);
    const auto saving = QtConcurrent::run(editFolderList, m_listFile, before, edit);
    const EditedFolderList edited = co_await saving;
    if (!self)
        co_return;
    m_saveError = edited.saveError;
    if (edited.saveError)
        co_return;
    m_isListUnreadable = false;
    if (edited.folders == mine)
        co_return;
    takeOver(edited.folders);
    m_rescan.trigger(); // other processes may have added folders
}

// Takes over what other processes made of the list, unless changes of this one could not be saved.
QCoro::Task<> FolderLibrary::reload()
{
    const QPointer<FolderLibrary> self(this);
    const auto turn = co_await m_changeTurns.turn();
    if (!self || m_saveError)
        co_return;
    const auto reading = QtConcurrent::run(readFolderList, m_listFile);
    const auto stored = co_await reading;
    if (!self || !stored || *stored == withoutManagedLibrary())
        co_return;
    takeOver(*stored);
}

// What other processes made of the list. Whether they removed active files with a folder is their affair.
void FolderLibrary::takeOver(Folders watched)
{
    publish(std::move(watched));
    forgetFilesOfMissingFolders();
}

void FolderLibrary::forgetFilesOfMissingFolders()
{
    std::vector<std::string> leaving;
    std::vector<std::string> missing;
    for (const auto &[id, listed] : files()) {
        if (folder(id))
            continue;
        missing.push_back(id);
        leaving.insert(leaving.end(), listed->begin(), listed->end());
    }
    if (missing.empty())
        return;
    for (const std::string &id : missing)
        dropFiles(id);
    leaving = withoutThoseOfOthers(leaving, {});
    std::erase_if(leaving, [this](const std::string &path) { return m_previewRegistered.erase(path) == 0; });
    if (!leaving.empty())
        m_registry.unregisterForProcess(leaving);
    m_revision = revision() + 1;
}

void FolderLibrary::publish(Folders watched)
{
    Folders all;
    std::copy_if(folders().begin(), folders().end(), std::back_inserter(all),
                 [](const WatchedFolder &folder) { return folder.isManagedLibrary; });
    std::move(watched.begin(), watched.end(), std::back_inserter(all));
    m_folders = std::move(all);
}

FolderLibrary::Folders FolderLibrary::withoutManagedLibrary() const
{
    Folders list = folders();
    std::erase_if(list, [](const WatchedFolder &folder) { return folder.isManagedLibrary; });
    return list;
}

std::vector<std::string> FolderLibrary::foldersOnDisk() const
{
    std::vector<std::string> paths;
    for (const WatchedFolder &folder : folders()) {
        if (isFolder(folder.path))
            paths.push_back(folder.path);
    }
    return paths;
}

bool FolderLibrary::isListed(const std::string &path) const
{
    return findByPath(folders(), path) != folders().end();
}

std::set<std::string> FolderLibrary::ids() const
{
    std::set<std::string> ids;
    for (const WatchedFolder &folder : folders())
        ids.insert(folder.id);
    return ids;
}

void FolderLibrary::dropFiles(const std::string &id)
{
    FilesById all = files();
    all.erase(id);
    m_files = std::move(all);
}

} // namespace kerlune
