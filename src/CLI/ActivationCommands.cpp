#include "CLI/Commands.h"
#include "CLI/DisplayText.h"
#include "CLI/LibrarySession.h"
#include "CLI/Output.h"
#include "CLI/StatusLine.h"
#include "CLI/StoreAccess.h"
#include "Library/FolderScan.h"
#include "Support/Localization.h"
#include "Support/Text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iostream>
#include <set>
#include <system_error>

namespace kerlune {

namespace {

namespace fs = std::filesystem;
using Paths = std::vector<std::string>;

enum class Direction { Activate, Deactivate };

void printActive(const ActivationManager::Paths &paths, OutputFormat format)
{
    if (format == OutputFormat::Json) {
        printJson(paths);
        return;
    }
    for (const std::string &path : paths)
        std::cout << displayText(path) << '\n';
}

// Files as they are given, of folders all that they hold; to deactivate, also what is active and no longer there.
Paths filesBelow(const Paths &given, const ActivationManager::Paths &active, const fs::path &links)
{
    Paths files;
    for (const std::string &path : given) {
        const std::string normal = normalisedPath(path);
        std::error_code error;
        if (!fs::is_directory(normal, error)) {
            const std::string asNamed = fs::absolute(path, error).lexically_normal(); // it may be an active link
            files.push_back(active.contains(asNamed) ? asNamed : normal);
            continue;
        }
        Paths found = scanFolder(normal, links);
        std::move(found.begin(), found.end(), std::back_inserter(files));
        std::copy_if(active.begin(), active.end(), std::back_inserter(files),
                     [&](const std::string &file) { return isBelow(file, normal); });
    }
    return files;
}

// Those of the family's files that lie in watched folders; absent after a message.
std::optional<Paths> filesOfFamily(const CommandContext &context, const FolderLibrary &folders,
                                   const std::string &family)
{
    const auto store = openStore(context.directories);
    if (store == nullptr)
        return std::nullopt;
    std::set<std::string> files;
    bool isKnown = false;
    for (const FontRecordPointer &record : store->loadAll()) {
        if (!equalIgnoringCase(record->family, family))
            continue;
        isKnown = true;
        if (folders.folderContaining(record->filePath))
            files.insert(record->filePath);
    }
    if (!files.empty())
        return Paths(files.begin(), files.end());
    printMessage(isKnown ? localized("La famille « %1 » n’a aucun fichier dans un dossier surveillé : ses polices sont "
                                     "celles du système, que tous les programmes voient déjà.",
                                     {displayText(family)})
                         : localized("Aucune famille « %1 » dans l’index ; « kerlune index » le remet à jour.",
                                     {displayText(family)}));
    return std::nullopt;
}

// What failed is not kept as active: nobody would see why it is not.
void forgetFailures(ActivationManager &activation)
{
    Paths failed;
    for (const RegistrationError &error : activation.failures())
        failed.push_back(error.path);
    if (!failed.empty())
        await(activation.deactivate(failed));
}

std::string summary(Direction direction, std::int64_t count)
{
    return direction == Direction::Activate ? localizedCount("%1 fichier activé.", "%1 fichiers activés.", count)
                                            : localizedCount("%1 fichier désactivé.", "%1 fichiers désactivés.", count);
}

int change(const CommandContext &context, const Paths &given, const std::string &family, OutputFormat format,
           Direction direction)
{
    if (given.empty() == family.empty())
        return reportWrongUsage(localized("Donnez des chemins, ou une famille par --family."));
    LibrarySession session(context);
    ActivationManager &activation = session.activation();
    const ActivationManager::Paths before = activation.activePaths(); // as it was left, missing files included
    if (!session.reapply())
        return kFailed;
    const fs::path links = normalisedPath(activationLinksFolder(context.directories));
    const std::optional<Paths> files =
        family.empty() ? filesBelow(given, before, links) : filesOfFamily(context, session.folders(), family);
    if (!files)
        return kFailed;
    if (files->empty())
        return reportFailure(localized("Aucune police à ces emplacements."));

    const auto count = static_cast<std::int64_t>(activation.activePaths().size());
    bool isDone = false;
    {
        StatusLine status;
        status.show(direction == Direction::Activate ? localized("Activation…") : localized("Désactivation…"));
        isDone = await(direction == Direction::Activate ? activation.activate(*files) : activation.deactivate(*files));
    }
    if (!isDone) {
        session.reportFailures();
        forgetFailures(activation);
    }
    if (direction == Direction::Activate && !context.registry.showsPersistentFonts()) {
        printMessage(localized("fontconfig ne lit pas le dossier des polices actives (%1) : les autres programmes ne "
                               "les verront pas. Ajoutez ce dossier à sa configuration.",
                               {displayText(activationLinksFolder(context.directories).native())}));
    }
    std::cerr << summary(direction, std::abs(static_cast<std::int64_t>(activation.activePaths().size()) - count))
              << '\n';
    if (format == OutputFormat::Json)
        printActive(activation.activePaths(), format);
    return isDone && session.reportSaveErrors() ? kDone : kFailed;
}

} // namespace

int runActivateCommand(const CommandContext &context, const Paths &paths, const std::string &family,
                       OutputFormat format)
{
    return change(context, paths, family, format, Direction::Activate);
}

int runDeactivateCommand(const CommandContext &context, const Paths &paths, const std::string &family,
                         OutputFormat format)
{
    return change(context, paths, family, format, Direction::Deactivate);
}

int runActiveCommand(const CommandContext &context, OutputFormat format)
{
    LibrarySession session(context);
    const bool isInLine = session.reapply();
    printActive(session.activation().activePaths(), format);
    return session.reportSaveErrors() && isInLine ? kDone : kFailed;
}

} // namespace kerlune
