#include "Catalogs/GoogleFontsCatalog.h"
#include "Catalogs/InstalledFamilies.h"
#include "Platform/Trash.h"
#include "State/AppState.h"
#include "Support/Localization.h"

#include <QCoroFuture>
#include <QPointer>
#include <QtConcurrentRun>

#include <algorithm>

// The Google Fonts catalogue, and the installation and removal of its families.
// A future is always named before it is awaited; see docs/decisions/0003-futures-are-named.md.

namespace kerlune {

namespace {

AppState::FamilyNames namesOf(const std::map<std::string, std::filesystem::path> &families)
{
    AppState::FamilyNames names;
    for (const auto &[name, folder] : families)
        names.insert(name);
    return names;
}

template <typename Value>
std::map<std::string, Value> with(std::map<std::string, Value> map, const std::string &key, Value value)
{
    map.insert_or_assign(key, std::move(value));
    return map;
}

template <typename Value>
std::map<std::string, Value> without(std::map<std::string, Value> map, const std::string &key)
{
    map.erase(key);
    return map;
}

} // namespace

QCoro::Task<> AppState::loadGoogleCatalog(bool force)
{
    const QPointer<AppState> self(this);
    if (googleCatalog().empty()) {
        const auto reading = QtConcurrent::run(GoogleFontsCatalog::readCachedCatalog, m_googleCacheFile);
        GoogleFamilies cached = co_await reading;
        if (!self)
            co_return;
        if (googleCatalog().empty() && !cached.empty())
            googleCatalog.set(std::move(cached));
    }
    const bool mayStay = !googleCatalog().empty() && !force && GoogleFontsCatalog::isFresh(m_googleCacheFile);
    if (mayStay || googleCatalogLoading())
        co_return;
    googleCatalogLoading.set(true);
    auto fetched = co_await GoogleFontsCatalog::fetchCatalog(m_http, m_googleAddresses.metadata, m_googleCacheFile);
    if (!self)
        co_return;
    if (fetched) {
        googleCatalog.set(*std::move(fetched));
        googleCatalogError.set(std::nullopt);
    } else {
        googleCatalogError.set(fetched.error().description());
    }
    googleCatalogLoading.set(false);
}

const GoogleFontFamily *AppState::googleFamily(const std::string &name) const
{
    const auto found = std::find_if(googleCatalog().begin(), googleCatalog().end(),
                                    [&](const GoogleFontFamily &family) { return family.family == name; });
    return found == googleCatalog().end() ? nullptr : &*found;
}

void AppState::refreshGoogleInstalled()
{
    googleInstalledFamilies.set(namesOf(installedFamilies(m_googleInstallRoot)));
}

QCoro::Task<bool> AppState::installGoogleFamily(std::string name)
{
    if (googleInstallProgress().contains(name) || m_googleRemovals.contains(name))
        co_return false;
    const QPointer<AppState> self(this);
    googleInstallErrors.set(without(googleInstallErrors(), name));
    const GoogleFontFamily *listed = googleFamily(name);
    if (listed == nullptr) {
        failGoogleFamily(
            name,
            GoogleFontsCatalog::CatalogError{.kind = GoogleFontsCatalog::CatalogError::Case::noFontFiles, .name = name}
                .description());
        co_return false;
    }
    googleInstallProgress.set(with(googleInstallProgress(), name, 0.0));
    const GoogleFontFamily family = *listed;
    const GoogleFamilyFiles::Progress report = [self, name](double share) {
        if (self)
            self->googleInstallProgress.set(with(self->googleInstallProgress(), name, share));
    };
    const auto downloaded = co_await m_googleFiles.download(family, report);
    if (!self)
        co_return false;
    if (!downloaded) {
        googleInstallProgress.set(without(googleInstallProgress(), name));
        failGoogleFamily(name, downloaded.error().description());
        co_return false;
    }
    refreshGoogleInstalled();
    const bool isActive = co_await setFilesActive(downloaded->fonts, true);
    if (!self)
        co_return false;
    googleInstallProgress.set(without(googleInstallProgress(), name));
    if (isActive) {
        const auto count = static_cast<std::int64_t>(downloaded->fonts.size());
        setNotice({localized("« %1 » installée (%2).",
                             {family.shownName(), localizedCount("%1 fichier", "%1 fichiers", count)})});
    }
    co_return isActive;
}

QCoro::Task<bool> AppState::removeGoogleFamily(std::string name)
{
    if (!m_googleRemovals.insert(name).second)
        co_return false;
    const QPointer<AppState> self(this);
    const bool isRemoved = co_await removeGoogleFiles(name);
    if (self)
        m_googleRemovals.erase(name);
    co_return isRemoved;
}

QCoro::Task<bool> AppState::removeGoogleFiles(std::string name)
{
    const QPointer<AppState> self(this);
    const auto installed = installedFamilies(m_googleInstallRoot);
    const auto found = installed.find(name);
    if (found == installed.end() || googleInstallProgress().contains(name)) {
        refreshGoogleInstalled();
        failGoogleFamily(name, localized("« %1 » n’est pas installée.", {name}));
        co_return false;
    }
    googleInstallErrors.set(without(googleInstallErrors(), name));
    const std::filesystem::path folder = found->second;
    std::vector<std::string> active;
    for (const std::string &file : fontFilesIn(folder)) {
        if (m_activation.activePaths().contains(file))
            active.push_back(file);
    }
    const bool isInactive = co_await setFilesActive(active, false);
    if (!self || !isInactive)
        co_return false;
    const auto moving = QtConcurrent::run(moveToTrash, folder);
    const auto moved = co_await moving;
    if (!self)
        co_return false;
    refreshGoogleInstalled();
    if (!moved) {
        failGoogleFamily(name, localized("« %1 » ne peut pas être mise à la corbeille : %2", {name, moved.error()}));
        co_await setFilesActive(active, true); // everything is as it was
        co_return false;
    }
    const GoogleFontFamily *listed = googleFamily(name);
    setNotice({localized("« %1 » retirée. Les fichiers sont dans la Corbeille.",
                         {listed == nullptr ? name : listed->shownName()})});
    co_return true;
}

void AppState::failGoogleFamily(const std::string &name, std::string error)
{
    googleInstallErrors.set(with(googleInstallErrors(), name, std::move(error)));
}

} // namespace kerlune
