#include "State/AppState.h"

#include "Platform/FontCatalog.h"
#include "Platform/FontRegistry.h"
#include "State/GoogleSettings.h"
#include "State/Preferences.h"
#include "State/SettingsFile.h"
#include "Support/Localization.h"

#include <QPointer>

#include <array>
#include <set>

// A future is always named before it is awaited; see docs/decisions/0003-futures-are-named.md.

namespace kerlune {

namespace {

constexpr std::array<std::pair<ViewMode, std::string_view>, 4> kViewModes{{{ViewMode::grid, "grid"},
                                                                           {ViewMode::list, "list"},
                                                                           {ViewMode::waterfall, "waterfall"},
                                                                           {ViewMode::compare, "compare"}}};

QString previewTextKey()
{
    return QStringLiteral("previewText");
}

QString previewSizeKey()
{
    return QStringLiteral("previewSize");
}

} // namespace

std::string label(ViewMode mode)
{
    switch (mode) {
    case ViewMode::grid:
        return localized("Grille");
    case ViewMode::list:
        return localized("Liste");
    case ViewMode::waterfall:
        return localized("Cascade");
    case ViewMode::compare:
        return localized("Comparer");
    }
    return {};
}

std::string_view viewModeKey(ViewMode mode)
{
    return kViewModes[static_cast<std::size_t>(mode)].second;
}

std::optional<ViewMode> viewModeFromKey(std::string_view key)
{
    for (const auto &[mode, word] : kViewModes) {
        if (word == key)
            return mode;
    }
    return std::nullopt;
}

AppState::AppState(const Surroundings &surroundings)
    : AppState(surroundings, Delays())
{}

AppState::AppState(const Surroundings &surroundings, const Delays &delays)
    : library(std::make_shared<const LoadedLibrary>())
    , m_catalog(surroundings.catalog)
    , m_delays(delays)
    , m_activation(surroundings.registry, surroundings.directories)
    , m_folders(m_activation, surroundings.registry, surroundings.events, surroundings.directories, delays.folderRescan)
    , m_settings(settingsFile(surroundings.directories), QSettings::IniFormat)
    , m_foreignChanges(delays.foreignChanges)
    , m_bridge(surroundings.scripts,
               {.scripts = resourcesFolder() / "Bridge",
                .resolve = [this] { return Preferences::resolveFolder(m_settings); }},
               [&front = surroundings.front] { return runningHosts(front); })
    , m_missingFonts(
          m_bridge, surroundings.front,
          [this] { return hasLoaded() && Preferences::activatesMissingFonts(m_settings); }, delays.missingFonts)
    , m_googleCacheFile(GoogleFontsCatalog::cacheFile(surroundings.directories))
    , m_googleInstallRoot(GoogleFontsCatalog::installRoot(surroundings.directories))
    , m_googleAddresses(googleAddresses(surroundings.directories))
    , m_googleSubsets(m_http, m_googleAddresses, GoogleIdentifyIndex::cacheDirectory(surroundings.directories))
    , m_googleFiles(m_http, m_googleAddresses, m_googleInstallRoot)
    , m_googlePreviews(m_googleSubsets, surroundings.directories)
    , m_googleIdentify(m_googleSubsets)
    , m_shuffleApplying(delays.shuffle, [this] { applyShuffled(); })
    , m_settingsSaving(delays.settings, [this] { saveSettings(); })
    , m_registryRefresh(delays.registryRefresh, [this] { refreshRegisteredFonts(); })
    , m_noticeDismissal(delays.notice, [this] { dismissNotice(); })
    , m_feedbackDismissal(delays.applied, [this] { dismissApplyFeedback(); })
{
    auto store = FontIndexStore::open(FontIndexStore::defaultPath(surroundings.directories.applicationSupport));
    if (store) {
        m_store = *std::move(store);
    } else {
        m_storeError = std::move(store).error();
        loadError.set(m_storeError->description());
    }
    m_fingerprints = std::make_unique<FingerprintIndex>(m_store);
    readSettings();
    followVisibleList();
    const auto shuffleSoon = [this] {
        if (shuffleActive())
            m_shuffleApplying.trigger();
    };
    m_observers.push_back(selectedFamily.addNotifier(shuffleSoon));
    m_observers.push_back(selectedFace.addNotifier(shuffleSoon));
    connect(&surroundings.registry, &FontRegistry::registeredFontsChanged, this,
            [this] { m_registryRefresh.trigger(); });
    followOtherProcesses(surroundings.directories);
}

AppState::~AppState()
{
    m_indexing.request_stop();
    m_glyphs.stopReading();
    saveSettings();
}

void AppState::followOtherProcesses(const Directories &directories)
{
    m_foreignChanges.addFile(directories.applicationSupport / "watched-folders.json",
                             [this] { m_folders.rescanAll(); });
    m_foreignChanges.addFile(directories.applicationSupport / "activation.json", [this] { m_activation.reload(); });
    m_foreignChanges.addFile(m_googleInstallRoot, [this] { refreshGoogleInstalled(); });
    m_foreignChanges.setDatabase(m_store, [this] { reloadUserData(); });
}

void AppState::readSettings()
{
    // Another program may have written the text without quotes, and a comma in it then makes a list.
    const QStringList text = m_settings.value(previewTextKey(), QString::fromUtf8(kDefaultPreviewText)).toStringList();
    previewText = text.join(QStringLiteral(", ")).toStdString();
    const double size = m_settings.value(previewSizeKey(), kDefaultPreviewSize).toDouble();
    previewSize = size >= kLeastPreviewSize && size <= kMostPreviewSize ? size : kDefaultPreviewSize;
    m_observers.push_back(previewText.addNotifier([this] { m_settingsSaving.trigger(); }));
    m_observers.push_back(previewSize.addNotifier([this] { m_settingsSaving.trigger(); }));
}

// Only what has changed: another process may have written its own.
void AppState::saveSettings()
{
    const auto save = [this](const QString &key, const QVariant &value, const QVariant &standard) {
        if (m_settings.value(key, standard) != value)
            m_settings.setValue(key, value);
    };
    save(previewTextKey(), QString::fromStdString(previewText.value()), QString::fromUtf8(kDefaultPreviewText));
    save(previewSizeKey(), previewSize.value(), kDefaultPreviewSize);
}

FontFamilyPointer AppState::family(const std::string &name) const
{
    const auto found = library()->familyByName.find(name);
    return found == library()->familyByName.end() ? nullptr : found->second;
}

FontRecordPointer AppState::record(const std::string &postScriptName) const
{
    const auto found = library()->recordByPostScriptName.find(postScriptName);
    return found == library()->recordByPostScriptName.end() ? nullptr : found->second;
}

FontRecordPointer AppState::activeRecord() const
{
    if (const auto &face = selectedFace.value()) {
        if (auto selected = record(*face))
            return selected;
    }
    const FontFamilyPointer selected = selectedFamily.value() ? family(*selectedFamily.value()) : nullptr;
    return selected == nullptr ? nullptr : selected->representative();
}

ActivationState AppState::activationState(const FontFamily &family) const
{
    std::size_t managed = 0;
    std::size_t active = 0;
    for (const FontRecordPointer &face : family.faces) {
        if (!m_folders.isInFolder(face->filePath))
            continue;
        ++managed;
        if (m_activation.activePaths().contains(face->filePath))
            ++active;
    }
    if (managed == 0)
        return ActivationState::system;
    if (active == 0)
        return ActivationState::inactive;
    return active == managed ? ActivationState::active : ActivationState::partial;
}

QCoro::Task<bool> AppState::setActive(const FontFamilyPointer &family, bool on)
{
    std::set<std::string> files;
    for (const FontRecordPointer &face : family->faces) {
        if (m_folders.isInFolder(face->filePath))
            files.insert(face->filePath);
    }
    return setFilesActive({files.begin(), files.end()}, on);
}

QCoro::Task<bool> AppState::setFilesActive(std::vector<std::string> files, bool on)
{
    const QPointer<AppState> self(this);
    if (files.empty())
        co_return true;
    auto changing = on ? m_activation.activate(std::move(files)) : m_activation.deactivate(std::move(files));
    const bool isDone = co_await changing;
    if (self && !isDone) {
        const std::string error = m_activation.lastError().value_or(std::string());
        setNotice(
            {on ? localized("Activation incomplète : ") + error : localized("Désactivation incomplète : ") + error,
             true});
    }
    co_return isDone;
}

void AppState::setNotice(Notice posted)
{
    m_noticeDismissal.trigger(posted.isError ? m_delays.errorNotice : m_delays.notice); // first: an observer may post
    notice.set(std::move(posted));
}

void AppState::dismissNotice()
{
    m_noticeDismissal.cancel();
    notice.set(std::nullopt);
}

void AppState::setApplyFeedback(ApplyResult feedback)
{
    const bool isApplied = std::holds_alternative<ApplyOutcome::Applied>(feedback);
    m_feedbackDismissal.trigger(isApplied ? m_delays.applied : m_delays.notApplied);
    applyFeedback.set(std::move(feedback));
}

void AppState::dismissApplyFeedback()
{
    m_feedbackDismissal.cancel();
    applyFeedback.set(std::nullopt);
}

} // namespace kerlune
