#pragma once

#include "Bridge/ApplyResult.h"
#include "Bridge/HostBridge.h"
#include "Bridge/MissingFontsWatcher.h"
#include "Catalogs/GoogleFamilyFiles.h"
#include "Catalogs/GooglePreviewStore.h"
#include "Catalogs/HttpsClient.h"
#include "Identify/FingerprintIndex.h"
#include "Identify/GoogleIdentifyIndex.h"
#include "Library/ActivationManager.h"
#include "Library/FolderLibrary.h"
#include "State/FilterSignature.h"
#include "State/ForeignChanges.h"
#include "State/GlyphCoverage.h"
#include "State/LoadedLibrary.h"
#include "State/Observed.h"
#include "State/SmartCollection.h"
#include "State/VisibleFamilies.h"
#include "Store/FontIndexStore.h"
#include "Support/Debounce.h"

#include <QCoroTask>
#include <QFuture>
#include <QObject>
#include <QSettings>
#include <QThreadPool>

#include <chrono>
#include <optional>
#include <set>
#include <stop_token>
#include <string>
#include <utility>
#include <vector>

namespace kerlune {

class FontCatalog;

enum class ViewMode { grid, list, waterfall, compare };

std::string label(ViewMode mode);            // for display
std::string_view viewModeKey(ViewMode mode); // "grid", …
std::optional<ViewMode> viewModeFromKey(std::string_view key);

// Whether the fonts of a family are shown to every program.
enum class ActivationState {
    system, // they are not Kerlune's to activate
    active,
    inactive,
    partial,
};

struct Notice {
    std::string text;
    bool isError = false;

    bool operator==(const Notice &) const = default;
};

struct KeyboardFocus {
    std::string family;
    int step = 0; // changes at each move, so that the same family can be focused again

    bool operator==(const KeyboardFocus &) const = default;
};

// What the interface observes: the library in memory, what the user made of it, what is selected, and the commands on
// these.
//
// Thread: main; every field changes there. What takes long is done on others.
// Errors: a database that cannot be opened is told in loadError, and the library stays empty. Commands on the user's
// own data answer false when nothing could be written, and then change nothing.
class AppState final : public QObject {
    Q_OBJECT

    template <typename Value>
    using Field = Observed<Value, AppState>;

public:
    using Families = std::vector<FontFamilyPointer>;
    using FamilyNames = std::set<std::string>;
    using Collections = std::vector<FontIndexStore::Collection>;

    struct Delays {
        std::chrono::milliseconds registryRefresh{1'500};
        std::chrono::milliseconds folderRescan = FolderLibrary::kRescanDelay;
        std::chrono::milliseconds notice{4'000};
        std::chrono::milliseconds errorNotice{6'000};
        std::chrono::milliseconds applied{2'200};
        std::chrono::milliseconds notApplied{5'000};
        std::chrono::milliseconds foreignChanges{2'000};
        std::chrono::milliseconds settings{500};
        std::chrono::milliseconds shuffle{150};
        std::chrono::milliseconds missingFonts = MissingFontsWatcher::kInterval;
    };

    // What must outlive the state.
    struct Surroundings {
        const FontCatalog &catalog;
        FontRegistry &registry;
        FileEventStream &events; // of the watched folders
        ScriptEngine &scripts;
        FrontApplication &front;
        const Directories &directories;
    };

    static constexpr int kMostRecents = 40;
    static constexpr const char *kDefaultPreviewText = "Kerlune";
    static constexpr double kDefaultPreviewSize = 34; // points
    static constexpr double kLeastPreviewSize = 4;
    static constexpr double kMostPreviewSize = 2'000;

    // Opens the database and reads the settings; load() does the rest.
    explicit AppState(const Surroundings &surroundings);
    AppState(const Surroundings &surroundings, const Delays &delays);
    ~AppState() override;

    // The library.
    Field<std::shared_ptr<const LoadedLibrary>> library; // never null
    Field<bool> isIndexing;                              // load() or rebuildIndex() runs
    Field<bool> hasLoaded;                               // load() has come to its end once
    Field<bool> canCancelIndexing;                       // there is a library that can stay as it is
    Field<double> indexProgress;                         // 0…1
    Field<std::string> indexMessage;                     // what is being done, empty when nothing is
    Field<std::optional<std::string>> loadError;         // stands in place of the library
    Field<bool> isReadingGlyphs;                         // the visible list waits for the characters of fonts

    // What the user has in front of them.
    QProperty<Filters> filters;
    QProperty<SidebarSelection> sidebarSelection;
    QProperty<std::optional<std::string>> selectedFamily; // its name
    QProperty<std::optional<std::string>> selectedFace;   // its PostScript name
    QProperty<std::vector<std::string>> comparisonSet;    // family names
    QProperty<std::string> previewText;                   // kept between launches
    QProperty<double> previewSize;                        // points, kept between launches
    QProperty<ViewMode> viewMode;
    QProperty<std::optional<std::vector<std::string>>> tagPromptFamilies; // for which a tag is being asked
    QProperty<bool> smartPromptVisible;
    QProperty<std::optional<std::string>> scrollTarget; // the family to scroll to
    QProperty<std::optional<KeyboardFocus>> keyboardFocus;

    // What the user made. Nothing of it goes when fonts go.
    Field<FamilyNames> favorites;
    Field<Collections> collections;
    Field<std::map<std::string, FamilyNames>> collectionCache; // members by collection id
    Field<std::vector<std::string>> recents;                   // family names, most recent first
    Field<TagsByFamily> tagsByFamily;
    Field<std::vector<SmartCollection>> smartCollections; // in creation order
    Field<std::int64_t> collectionsRevision;
    Field<std::int64_t> tagsRevision;
    Field<std::int64_t> smartRevision;

    // The Google Fonts catalogue; see also googlePreviews() and googleIdentify().
    Field<GoogleFamilies> googleCatalog;                  // in the service's order
    Field<bool> googleCatalogLoading;                     // it is being fetched
    Field<std::optional<std::string>> googleCatalogError; // of the last fetch, for the user
    Field<FamilyNames> googleInstalledFamilies;
    Field<std::map<std::string, double>> googleInstallProgress;    // of families being installed, 0…1
    Field<std::map<std::string, std::string>> googleInstallErrors; // by family, of its last installation or removal
    QProperty<std::optional<std::string>> googleSelectedFamily;
    // For views that compare families of the catalogue among themselves and step through them by the arrow keys. The
    // window compares them with the user's own, in comparisonSet, and its list knows which family is next.
    QProperty<std::vector<std::string>> googleCompare;
    QProperty<std::optional<std::string>> googleFocusFamily;
    QProperty<std::vector<std::string>> googleArrowFamilies;

    // Fonts in other programs.
    Field<bool> isApplying;
    Field<bool> shuffleActive; // each font that is selected is applied at once
    Field<std::optional<HostApp>> shuffleTarget;

    // What has just happened; gone by itself after a while.
    Field<std::optional<Notice>> notice;
    Field<std::optional<ApplyResult>> applyFeedback;

    const std::vector<FontRecordPointer> &allRecords() const { return library()->records; }
    const Families &families() const { return library()->families; }   // in library order
    FontFamilyPointer family(const std::string &name) const;           // null when there is none
    FontRecordPointer record(const std::string &postScriptName) const; // null when there is none
    FontRecordPointer activeRecord() const; // the selected face, else that of the selected family; or null

    ActivationManager &activation() { return m_activation; }
    const ActivationManager &activation() const { return m_activation; }
    FolderLibrary &folderLibrary() { return m_folders; }
    const FolderLibrary &folderLibrary() const { return m_folders; }
    const HostBridge &hostBridge() const { return m_bridge; }
    FingerprintIndex &fingerprints() const { return *m_fingerprints; }
    GooglePreviewStore &googlePreviews() { return m_googlePreviews; }
    GoogleIdentifyIndex &googleIdentify() { return m_googleIdentify; }
    const GoogleFontFamily *googleFamily(const std::string &name) const;     // null when the catalogue has none
    const std::shared_ptr<FontIndexStore> &store() const { return m_store; } // null when it could not be opened
    const std::optional<FontIndexStore::StoreError> &storeError() const { return m_storeError; }

    // Loading.
    void readAhead();                       // begins what load() will need of the system, which else begins it itself
    QCoro::Task<> load();                   // a second one while one runs returns at once
    QCoro::Task<> rebuildIndex();           // likewise
    void cancelIndexing();                  // where canCancelIndexing
    QCoro::Task<> refreshRegisteredFonts(); // takes over what the system offers by now
    void reloadUserData();                  // takes over what other processes made

    // The visible list and the numbers beside the sidebar, computed when something that they depend on has changed.
    // What a reference leads to is good until the next change of the state.
    const Families &visibleFamilies() const;
    // From now on a list for which fonts must be asked for their characters is computed on other threads; until then
    // the former one stands and isReadingGlyphs tells.
    void readGlyphsInBackground();
    Families computeVisibleFamilies() const;
    QCoro::Task<std::int64_t> countVisibleWith(Filters otherFilters); // in place of those that are set
    FilterSignature filterSignature() const;
    const LibraryCounts &counts() const;
    const std::map<std::string, std::int64_t> &languageCounts() const; // by language id
    std::int64_t familyCountInFolder(const std::string &id) const;
    const std::vector<FontFamily> &duplicateFamilies() const { return library()->duplicates; }
    ViewMode effectiveViewMode() const; // some selections have no other than the grid

    // Activation.
    ActivationState activationState(const FontFamily &family) const;
    QCoro::Task<bool> setActive(const FontFamilyPointer &family, bool on); // false, with a notice, when a file failed
    QCoro::Task<bool> setFilesActive(std::vector<std::string> files, bool on); // likewise, of any watched folder

    // Fonts in other programs.
    // Shows the font to every program where that is needed, and gives the text that is selected in the host this font.
    QCoro::Task<ApplyResult> apply(FontRecordPointer face, HostApp target);
    // That of activeRecord(), where there is one; what came of it is in applyFeedback. While one runs, a further one
    // waits for it, and takes the place of those that wait already.
    QCoro::Task<> applyCurrent(HostApp target);
    QCoro::Task<> applyCurrentToFrontmost();
    // Applies the selected font and each one that is selected from now on, in the host that was in front last, where
    // none is given. False, with feedback, when no host runs. It stops by itself when the host is out of reach. Only
    // the last font counts as used, and stays active where it was not.
    bool startShuffle(std::optional<HostApp> target = std::nullopt);
    void stopShuffle();
    void stepShuffle(int step); // selects another visible family; after the last one comes the first
    void stepShuffleAtRandom();
    // Shows to every program what the library holds of these fonts, by PostScript name, else by family and style, and
    // tells in a notice which it does not hold. Nothing is ever deactivated.
    QCoro::Task<> activateMissingFonts(std::vector<UsedFont> fonts, std::vector<std::string> documents, HostApp host);

    // Google Fonts.
    // Reads the copy on disk, where nothing was read yet, and asks the service when that is older than seven days, or
    // in any case (`force`). What is there stays when the service fails.
    QCoro::Task<> loadGoogleCatalog(bool force);
    // Downloads a family of the catalogue and activates its files. False, with a text in googleInstallErrors or a
    // notice, when that failed, and when it is being installed already.
    QCoro::Task<bool> installGoogleFamily(std::string name);
    // Deactivates it, and moves its files to the trash. False, with a text as above, when that failed.
    QCoro::Task<bool> removeGoogleFamily(std::string name);
    void refreshGoogleInstalled(); // looks at what is installed

    // Tags.
    std::vector<std::pair<std::string, std::int64_t>> allTags() const; // with the number of families, as names sort
    std::vector<std::string> tags(const std::string &family) const;    // sorted
    bool setTag(const std::string &tag, const std::vector<std::string> &onFamilies, bool on);
    bool renameTag(std::string tag, const std::string &newName);
    bool deleteTag(std::string tag);
    void reloadTags();

    // Collections.
    std::optional<std::string> createCollection(const std::string &newName); // its id
    bool renameCollection(const std::string &id, const std::string &newName);
    bool deleteCollection(std::string id);
    bool addToCollection(std::string id, const std::vector<std::string> &families);
    bool removeFromCollection(const std::string &id, const std::vector<std::string> &families);
    std::vector<std::string> collectionFontPaths(const std::string &id) const; // of all faces of its families, sorted

    // Smart collections.
    std::optional<std::string> saveCurrentFiltersAsSmartCollection(const std::string &newName); // its id
    bool updateSmartCollection(const std::string &id); // takes the current filters
    bool renameSmartCollection(const std::string &id, const std::string &newName);
    bool deleteSmartCollection(std::string id);
    void reloadSmartCollections();

    // Favourites and recently used families.
    bool toggleFavorite(const std::string &family);
    bool setFavorites(const std::vector<std::string> &families, bool on);
    bool noteUsed(const std::string &family);

    // Puts what was deleted back, under the same ids; see FontIndexStore::restore().
    bool restoreUserData(const UserData &data);

    void setNotice(Notice posted);
    void dismissNotice();
    void setApplyFeedback(ApplyResult feedback);
    void dismissApplyFeedback();

Q_SIGNALS:
    void visibleFamiliesChanged(); // or may have

private:
    enum class StoredIndex { MayServe, IsPassedOver };

    struct CachedList {
        FilterSignature signature;
        std::int64_t revision; // of what the signature only counts
        Families families;
    };

    struct WantedFont {
        FontRecordPointer face;
        HostApp target;
        bool isTried; // by the shuffle
    };

    // The stored index, being read.
    struct StoredRead {
        std::int64_t count; // of its records
        QFuture<std::shared_ptr<const LoadedLibrary>> library;
    };

    LibraryContext context() const;
    void readSettings();
    void saveSettings();
    void followOtherProcesses(const Directories &directories);
    void followVisibleList();
    bool isVisibleListValid(const FilterSignature &signature) const;
    bool requiresGlyphs() const;
    QCoro::Task<> readGlyphs();
    QFuture<Families> listOnOtherThread(Filters otherFilters);
    void publish(std::shared_ptr<const LoadedLibrary> loaded);
    void finishIndexing();
    void showProgress(int done, int total);
    void readStoredAhead();
    QCoro::Task<> readRecords(StoredIndex storedIndex);
    QCoro::Task<bool> readStoredRecords(); // false when there are none
    QCoro::Task<> index(std::int64_t count);
    QCoro::Task<> saveIndex(std::shared_ptr<const LoadedLibrary> stored);
    void reloadCollections();
    void reloadRecents();
    void publishFavorites(FamilyNames stored);
    void publishRecents(std::vector<std::string> stored);
    void publishTags(TagsByFamily stored);
    void publishCollections(Collections stored, std::map<std::string, FamilyNames> members);
    void publishSmartCollections(std::vector<SmartCollection> stored);
    QCoro::Task<std::optional<std::string>> preflight(FontRecordPointer face); // what stands in the way
    QCoro::Task<> applyWanted(WantedFont wanted);
    void endTrial();
    void applyShuffled();
    void selectForShuffle(std::size_t position);
    std::vector<FontRecordPointer> facesFor(const UsedFont &font) const;
    void failGoogleFamily(const std::string &name, std::string error);
    QCoro::Task<bool> removeGoogleFiles(std::string name);
    template <typename Change>
    bool write(Change &&change); // to the store; false without one

    const FontCatalog &m_catalog;
    Delays m_delays;
    std::shared_ptr<FontIndexStore> m_store; // shared with work on other threads
    std::optional<FontIndexStore::StoreError> m_storeError;
    ActivationManager m_activation;
    FolderLibrary m_folders;
    std::unique_ptr<FingerprintIndex> m_fingerprints;
    QSettings m_settings;
    ForeignChanges m_foreignChanges;

    HostBridge m_bridge;
    MissingFontsWatcher m_missingFonts;
    std::optional<WantedFont> m_wantedFont; // that is to be applied next
    std::set<std::string> m_triedFiles;     // shown to every program for the shuffle alone
    FontRecordPointer m_lastTried;          // that a host took in the shuffle

    std::filesystem::path m_googleCacheFile;
    std::filesystem::path m_googleInstallRoot;
    GoogleAddresses m_googleAddresses;
    HttpsClient m_http; // one for all: it counts the connections
    GoogleSubsets m_googleSubsets;
    GoogleFamilyFiles m_googleFiles;
    GooglePreviewStore m_googlePreviews;
    GoogleIdentifyIndex m_googleIdentify;
    FamilyNames m_googleRemovals; // that are under way

    std::int64_t m_listRevision = 0; // grows with changes that the signature does not tell apart
    mutable GlyphCoverage m_glyphs;
    bool m_glyphsInBackground = false;
    mutable std::optional<CachedList> m_visible;
    mutable std::optional<LibraryCounts> m_counts;
    mutable std::optional<std::map<std::string, std::int64_t>> m_languageCounts;

    bool m_isRefreshing = false;
    bool m_isSystemAsked = false; // once, for the first load
    Debounce m_shuffleApplying;
    Debounce m_settingsSaving;
    Debounce m_registryRefresh;
    Debounce m_noticeDismissal;
    Debounce m_feedbackDismissal;
    std::vector<QPropertyNotifier> m_observers;
    std::optional<StoredRead> m_readAhead;
    std::stop_source m_indexing;
    QThreadPool m_pool; // the last one: it waits for what still runs
};

} // namespace kerlune
