#pragma once

#include "Library/WatchedFolder.h"
#include "Platform/Directories.h"
#include "Support/AsyncLock.h"
#include "Support/Debounce.h"

#include <QBindable>
#include <QCoroTask>
#include <QProperty>
#include <tl/expected.hpp>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <stop_token>
#include <string>
#include <unordered_set>
#include <vector>

namespace kerlune {

class ActivationManager;
class FileEventStream;
class FontRegistry;

// The folders that the user watches and the font files in them, which this process can use at once. Files that are new
// in a folder marked for it are activated for every program. The list stands in watched-folders.json; several processes
// may change it at the same time.
//
// Thread: main; folders are read on others.
// Errors: a folder that cannot be read counts as empty, a list that cannot be read as one without folders.
class FolderLibrary final : public QObject {
    Q_OBJECT

public:
    struct AddError {
        enum class Case { alreadyWatched, systemFolder, empty, nested };
        Case kind;
        std::string name = {}; // nested: of the folder around

        std::string description() const; // for the user
    };

    // Sorted paths of the fonts in a folder, shared and never changed.
    using Files = std::shared_ptr<const std::vector<std::string>>;
    using FilesById = std::map<std::string, Files>;

    static constexpr std::chrono::milliseconds kRescanDelay{1'500};

    // Reads the list. What is given here must outlive the library.
    FolderLibrary(ActivationManager &activation, FontRegistry &registry, FileEventStream &stream,
                  const Directories &directories, std::chrono::milliseconds rescanDelay = kRescanDelay,
                  QObject *parent = nullptr);
    ~FolderLibrary() override;

    const std::vector<WatchedFolder> &folders() const { return m_folders.value(); } // the managed library first
    const FilesById &files() const { return m_files.value(); }                      // by folder id, from the last scan
    bool isScanning() const { return m_isScanning.value(); }                        // rescanAll() runs
    std::int64_t revision() const { return m_revision.value(); } // grows when the files of the library change
    QBindable<std::vector<WatchedFolder>> bindableFolders() { return &m_folders; }
    QBindable<FilesById> bindableFiles() { return &m_files; }
    QBindable<bool> bindableIsScanning() { return &m_isScanning; }
    QBindable<std::int64_t> bindableRevision() { return &m_revision; }

    std::optional<WatchedFolder> folder(const std::string &id) const;
    std::optional<WatchedFolder> folderContaining(const std::string &path) const; // the first one around the path
    bool isInFolder(const std::string &path) const;

    // What stands in the list cannot be understood. It stays until the next change, and a copy of it after that.
    bool isListUnreadable() const { return m_isListUnreadable; }
    // Why the list could not be written the last time. The change is then forgotten with the process.
    const std::optional<std::string> &saveError() const { return m_saveError; }

    // Watches a folder too; gives the number of font files in it.
    QCoro::Task<tl::expected<std::int64_t, AddError>> add(std::filesystem::path path);
    // Lets a folder go, with all that it made available. The managed library stays.
    QCoro::Task<> remove(std::string id);
    // On: all its files are activated, and those that come. Off: what is active stays so.
    QCoro::Task<> setAutoActivate(std::string id, bool on);

    // Lists the managed library when files were moved there (migration-manifest.json says so), and no longer when not.
    void refreshManagedLibraryEntry();

    // Looks into every folder again. One that is missing keeps its files.
    QCoro::Task<> rescanAll();

    // Follows the folders that exist; what happens in them leads to one rescan when it has been quiet for a while.
    void startMonitoring();

private:
    using Folders = std::vector<WatchedFolder>;
    using Edit = std::function<void(Folders &)>; // of a list without the managed library
    using Time = std::chrono::system_clock::time_point;

    std::optional<AddError> refusal(const std::string &path) const;
    bool isListed(const std::string &path) const;
    std::set<std::string> ids() const;
    QCoro::Task<> edit(Edit edit); // of the list here and of the one on disk
    QCoro::Task<> reload();
    QCoro::Task<> apply(Files scanned, std::string id);
    QCoro::Task<> retire(std::vector<std::string> paths);
    std::vector<std::string> withoutThoseOfOthers(const std::vector<std::string> &paths, const std::string &id) const;
    void publish(Folders watched);
    void takeOver(Folders watched);
    void forgetFilesOfMissingFolders();
    Folders withoutManagedLibrary() const;
    std::vector<std::string> foldersOnDisk() const;
    void dropFiles(const std::string &id);

    ActivationManager &m_activation;
    FontRegistry &m_registry;
    FileEventStream &m_stream;
    std::filesystem::path m_listFile;
    std::filesystem::path m_journalFile;
    std::string m_managedLibrary;
    std::filesystem::path m_activationLinks; // never part of a folder
    std::vector<std::string> m_systemFolders;

    QProperty<Folders> m_folders;
    QProperty<FilesById> m_files;
    QProperty<bool> m_isScanning;
    QProperty<std::int64_t> m_revision;
    int m_rescans = 0; // that run or wait
    bool m_isListUnreadable = false;
    std::optional<std::string> m_saveError;

    std::unordered_set<std::string> m_previewRegistered; // for this process
    std::map<std::string, Time> m_scanTimes;             // when the last scan of a path began
    std::optional<std::vector<std::string>> m_monitored; // paths; absent before startMonitoring()
    AsyncLock m_rescanTurns;
    AsyncLock m_changeTurns; // of what the library holds
    Debounce m_rescan;
    std::stop_source m_stop;
};

} // namespace kerlune
