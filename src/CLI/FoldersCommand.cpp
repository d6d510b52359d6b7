#include "CLI/Action.h"
#include "CLI/Commands.h"
#include "CLI/DisplayText.h"
#include "CLI/IndexUpdate.h"
#include "CLI/LibrarySession.h"
#include "CLI/Output.h"
#include "CLI/StatusLine.h"
#include "Library/FolderScan.h"
#include "Support/Localization.h"

#include <nlohmann/json.hpp>

#include <array>
#include <iostream>
#include <system_error>

namespace kerlune {

namespace {

using Words = std::vector<std::string>;

constexpr std::array kFolderActions{Action{"list"}, Action{"add", 1, 1}, Action{"remove", 1, 1}, Action{"auto", 2, 2},
                                    Action{"rescan"}};

std::string folderUsage()
{
    return localized("Usage : kerlune folders [list | add CHEMIN | remove CHEMIN-OU-ID | "
                     "auto CHEMIN-OU-ID on|off | rescan]");
}

std::vector<std::string> filesOf(const FolderLibrary &library, const WatchedFolder &folder)
{
    const auto files = library.files().find(folder.id);
    return files == library.files().end() ? std::vector<std::string>() : *files->second;
}

void printList(const FolderLibrary &library)
{
    auto list = nlohmann::json::array();
    for (const WatchedFolder &folder : library.folders()) {
        list.push_back({{"id", folder.id},
                        {"path", folder.path},
                        {"autoActivate", folder.autoActivate},
                        {"isManagedLibrary", folder.isManagedLibrary},
                        {"files", filesOf(library, folder)}});
    }
    printJson(list);
}

std::string remarks(const WatchedFolder &folder)
{
    std::string text;
    if (folder.isManagedLibrary)
        text += localized(", bibliothèque de Kerlune");
    if (folder.autoActivate)
        text += localized(", activation automatique");
    if (std::error_code error; !std::filesystem::is_directory(folder.path, error))
        text += localized(", introuvable");
    return text;
}

void printText(const FolderLibrary &library)
{
    for (const WatchedFolder &folder : library.folders()) {
        const auto count = static_cast<std::int64_t>(filesOf(library, folder).size());
        std::cout << displayText(folder.path) << " — " << localizedCount("%1 police", "%1 polices", count)
                  << remarks(folder) << '\n';
    }
    if (library.folders().empty())
        std::cerr << localized("Aucun dossier surveillé ; « kerlune folders add CHEMIN » en ajoute un.") << '\n';
}

// The folder of an id or a path; absent after a message.
std::optional<WatchedFolder> findFolder(const FolderLibrary &library, const std::string &pathOrId)
{
    const std::string path = normalisedPath(pathOrId);
    for (const WatchedFolder &folder : library.folders()) {
        if (folder.id == pathOrId || folder.path == path || folder.path == pathOrId)
            return folder;
    }
    reportFailure(localized("Aucun dossier surveillé ne correspond à « %1 ».", {displayText(pathOrId)}));
    return std::nullopt;
}

// After a change the index follows, so that what the user did is seen at once.
int finish(const CommandContext &context, const LibrarySession &session, EmptyIndex whenEmpty)
{
    const bool isSaved = session.reportSaveErrors();
    const auto index = updateIndex(context, whenEmpty);
    return isSaved && index && index->isSaved ? kDone : kFailed;
}

int addFolder(const CommandContext &context, LibrarySession &session, const std::string &path)
{
    const std::string folder = normalisedPath(path);
    if (std::error_code error; !std::filesystem::is_directory(folder, error))
        return reportFailure(localized("« %1 » n’est pas un dossier, ou n’existe pas.", {displayText(path)}));
    tl::expected<std::int64_t, FolderLibrary::AddError> added;
    {
        StatusLine status;
        status.show(localized("Lecture de %1…", {displayText(folder)}));
        added = await(session.folders().add(path));
    }
    if (!added)
        return reportFailure(added.error().description());
    std::cerr << localizedCount("%1 police trouvée.", "%1 polices trouvées.", *added) << '\n';
    return finish(context, session, EmptyIndex::Refuse);
}

int removeFolder(const CommandContext &context, LibrarySession &session, const std::string &pathOrId)
{
    const auto folder = findFolder(session.folders(), pathOrId);
    if (!folder)
        return kFailed;
    if (folder->isManagedLibrary)
        return reportFailure(localized("La bibliothèque de Kerlune ne peut pas être retirée."));
    await(session.folders().remove(folder->id));
    return finish(context, session, EmptyIndex::Accept); // the user may have watched nothing else
}

int setAutoActivate(LibrarySession &session, const std::string &pathOrId, bool on)
{
    const auto folder = findFolder(session.folders(), pathOrId);
    if (!folder)
        return kFailed;
    await(session.folders().setAutoActivate(folder->id, on));
    if (on && session.activation().lastError())
        return reportFailure(localized("Activation incomplète : %1", {*session.activation().lastError()}));
    return session.reportSaveErrors() ? kDone : kFailed;
}

} // namespace

int runFoldersCommand(const CommandContext &context, const Words &words, OutputFormat format)
{
    const auto chosen = chooseAction(kFolderActions, words, folderUsage());
    if (!chosen)
        return kWrongUsage;
    const auto &[action, arguments] = *chosen;
    if (action == "auto" && arguments[1] != "on" && arguments[1] != "off")
        return reportWrongUsage(localized("« %1 » : il faut « on » ou « off ».", {displayText(arguments[1])}),
                                folderUsage());

    LibrarySession session(context);
    if (!session.load())
        return kFailed;
    int status = kDone;
    if (action == "add")
        status = addFolder(context, session, arguments[0]);
    else if (action == "remove")
        status = removeFolder(context, session, arguments[0]);
    else if (action == "auto")
        status = setAutoActivate(session, arguments[0], arguments[1] == "on");
    else if (action == "rescan")
        status = finish(context, session, EmptyIndex::Refuse);
    else
        status = session.reportSaveErrors() ? kDone : kFailed;
    if (format == OutputFormat::Json)
        printList(session.folders());
    else if (status == kDone)
        printText(session.folders());
    return status;
}

} // namespace kerlune
