#include "CLI/Action.h"
#include "CLI/Await.h"
#include "CLI/Commands.h"
#include "CLI/DisplayText.h"
#include "CLI/Output.h"
#include "CLI/ProgressBar.h"
#include "CLI/StateSession.h"
#include "Catalogs/GoogleFontsCatalog.h"
#include "Catalogs/InstalledFamilies.h"
#include "Support/Localization.h"
#include "Support/Text.h"

#include <QEventLoop>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <iostream>
#include <optional>

namespace kerlune {

namespace {

constexpr std::array kGoogleActions{Action{"catalog"}, Action{"preview", 1, 1}, Action{"subsets"},
                                    Action{"install", 1, 1}, Action{"remove", 1, 1}};

std::string googleUsage()
{
    return localized("Usage : kerlune google [catalog [--refresh] | preview FAMILLE | subsets | install FAMILLE | "
                     "remove FAMILLE]");
}

// A failure of the service is told; it is one of the command only where there is nothing to go on with, or the service
// was to be asked.
bool loadCatalog(AppState &state, CatalogSource source)
{
    {
        StatusLine line;
        line.show(localized("Lecture du catalogue Google Fonts…"));
        await(state.loadGoogleCatalog(source == CatalogSource::Service));
    }
    const auto &error = state.googleCatalogError();
    if (error)
        printMessage(localized("Catalogue indisponible : %1", {displayText(*error)}));
    return !state.googleCatalog().empty() && (!error || source == CatalogSource::Usual);
}

// By its name, else by the name that is shown or one that differs in case; null after a message.
const GoogleFontFamily *findFamily(const AppState &state, const std::string &name)
{
    if (const GoogleFontFamily *family = state.googleFamily(name))
        return family;
    const auto &families = state.googleCatalog();
    const auto found = std::find_if(families.begin(), families.end(), [&](const GoogleFontFamily &family) {
        return equalIgnoringCase(family.family, name) || equalIgnoringCase(family.shownName(), name);
    });
    if (found != families.end())
        return &*found;
    reportFailure(localized("Aucune famille « %1 » dans le catalogue Google Fonts.", {displayText(name)}));
    return nullptr;
}

std::string googleFamilyLine(const AppState &state, const GoogleFontFamily &family)
{
    std::string line = displayText(family.family) + " — " + displayText(categoryLabel(family.category)) + ", " +
                       localizedCount("%1 style", "%1 styles", static_cast<std::int64_t>(family.variants.size()));
    if (family.isVariable)
        line += localized(", variable");
    if (state.googleInstalledFamilies().contains(family.family))
        line += localized(", installée");
    return line;
}

int printCatalog(const AppState &state, OutputFormat format)
{
    if (format == OutputFormat::Json) {
        printJsonLines(state.googleCatalog(), encodeGoogleFamily);
    } else {
        for (const GoogleFontFamily &family : state.googleCatalog())
            std::cout << googleFamilyLine(state, family) << '\n';
    }
    return kDone;
}

int preview(AppState &state, const std::string &name, OutputFormat format)
{
    const GoogleFontFamily *family = findFamily(state, name);
    if (family == nullptr)
        return kFailed;
    GooglePreviewStore &previews = state.googlePreviews();
    QEventLoop loop;
    QObject::connect(&previews, &GooglePreviewStore::settled, &loop, &QEventLoop::quit);
    previews.request(*family);
    loop.exec();
    const FontRecordPointer font = previews.descriptor(family->family);
    if (font == nullptr)
        return reportFailure(localized("Aucun aperçu de « %1 » n’a pu être obtenu.", {displayText(family->family)}));
    if (format == OutputFormat::Json)
        printJson({{"family", family->family}, {"path", font->filePath}, {"postScriptName", font->postScriptName}});
    else
        std::cout << displayText(font->filePath) << '\n';
    return kDone;
}

int fetchSubsets(const CommandContext &context, AppState &state, OutputFormat format)
{
    GoogleIdentifyIndex &index = state.googleIdentify();
    {
        const std::string label = localized("Téléchargement des échantillons…");
        StatusLine line;
        const auto observer =
            index.bindableProgress().addNotifier([&] { line.show(withProgressCells(label, index.progress())); });
        index.loadFromCache(state.googleCatalog());
        await(index.build(state.googleCatalog()));
    }
    if (index.lastError())
        return reportFailure(*index.lastError());
    const std::size_t total = state.googleCatalog().size();
    if (const std::size_t missing = total - std::min(total, index.readyCount()); missing > 0) {
        printMessage(localizedCount("%1 famille n’a pas pu être préparée.", "%1 familles n’ont pas pu être préparées.",
                                    static_cast<std::int64_t>(missing)));
    }
    const std::string folder = GoogleIdentifyIndex::cacheDirectory(context.directories);
    if (format == OutputFormat::Json)
        printJson({{"families", total}, {"ready", index.readyCount()}, {"folder", folder}});
    else
        std::cout << localizedCount("%1 famille prête à comparer", "%1 familles prêtes à comparer",
                                    static_cast<std::int64_t>(index.readyCount()))
                  << '\n';
    return kDone;
}

// Why the family could not be installed or removed.
int reportGoogleFailure(const AppState &state, const std::string &family)
{
    const auto &errors = state.googleInstallErrors();
    if (const auto error = errors.find(family); error != errors.end())
        return reportFailure(displayText(error->second));
    return reportFailure(displayText(state.notice() ? state.notice()->text : localized("Téléchargement interrompu.")));
}

void printNotice(const AppState &state)
{
    if (state.notice())
        std::cerr << displayText(state.notice()->text) << '\n';
}

int install(const CommandContext &context, AppState &state, const std::string &name, OutputFormat format)
{
    const GoogleFontFamily *listed = findFamily(state, name);
    if (listed == nullptr)
        return kFailed;
    const std::string family = listed->family;
    bool isDone = false;
    {
        const std::string label = localized("Installation de « %1 »…", {displayText(family)});
        StatusLine line;
        const auto observer = state.googleInstallProgress.observe([&] {
            const auto share = state.googleInstallProgress().find(family);
            line.show(withProgressCells(label, share == state.googleInstallProgress().end() ? 1 : share->second));
        });
        isDone = await(state.installGoogleFamily(family));
    }
    if (!isDone)
        return reportGoogleFailure(state, family);
    printNotice(state);
    const auto installed = installedFamilies(GoogleFontsCatalog::installRoot(context.directories));
    const auto folder = installed.find(family);
    const auto files = folder == installed.end() ? std::vector<std::string>() : fontFilesIn(folder->second);
    if (format == OutputFormat::Json) {
        printJson({{"family", family}, {"files", files}});
    } else {
        for (const std::string &file : files)
            std::cout << displayText(file) << '\n';
    }
    return state.activation().saveError() ? reportFailure(*state.activation().saveError()) : kDone;
}

int remove(AppState &state, const std::string &name, OutputFormat format)
{
    state.refreshGoogleInstalled();
    const auto &installed = state.googleInstalledFamilies();
    const auto found = installed.contains(name)
                           ? installed.find(name)
                           : std::find_if(installed.begin(), installed.end(),
                                          [&](const auto &other) { return equalIgnoringCase(other, name); });
    const std::string family = found == installed.end() ? name : *found;
    if (!await(state.removeGoogleFamily(family)))
        return reportGoogleFailure(state, family);
    printNotice(state);
    if (format == OutputFormat::Json)
        printJson({{"family", family}});
    return state.activation().saveError() ? reportFailure(*state.activation().saveError()) : kDone;
}

} // namespace

int runGoogleCommand(const CommandContext &context, const std::vector<std::string> &words, CatalogSource source,
                     OutputFormat format)
{
    const auto chosen = chooseAction(kGoogleActions, words, googleUsage());
    if (!chosen)
        return kWrongUsage;
    const auto &[action, arguments] = *chosen;
    const auto session = StateSession::open(context);
    if (session == nullptr)
        return kFailed;
    AppState &state = session->state();
    if (action == "remove")
        return remove(state, arguments[0], format);
    if (!loadCatalog(state, source))
        return kFailed;
    state.refreshGoogleInstalled();
    if (action == "preview")
        return preview(state, arguments[0], format);
    if (action == "subsets")
        return fetchSubsets(context, state, format);
    if (action == "install")
        return install(context, state, arguments[0], format);
    return printCatalog(state, format);
}

} // namespace kerlune
