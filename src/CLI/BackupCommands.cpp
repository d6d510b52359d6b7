#include "CLI/Commands.h"
#include "CLI/DisplayText.h"
#include "CLI/Output.h"
#include "CLI/StateSession.h"
#include "CLI/StoreAccess.h"
#include "State/BackupFile.h"
#include "Support/Localization.h"

#include <iostream>

namespace kerlune {

namespace {

constexpr const char *kStandardStream = "-";

void printCounts(const UserData &data, OutputFormat format)
{
    if (format == OutputFormat::Text)
        return;
    printJson({{"tags", tagCount(data)},
               {"collections", data.collections.size()},
               {"smartCollections", data.smartCollections.size()},
               {"favorites", data.favorites.size()},
               {"recents", data.recents.size()}});
}

tl::expected<UserData, std::string> writeStandardOutput(FontIndexStore &store)
{
    return backupOf(store).map([](const BackupContent &backup) {
        std::cout << backup.json.dump(2) << '\n';
        return backup.data;
    });
}

tl::expected<UserData, std::string> readStandardInput()
{
    std::string bytes(kMostBackupBytes + 1, '\0'); // one more shows that there is too much
    std::cin.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(std::cin.gcount()));
    return readBackupText(bytes);
}

} // namespace

int runBackupCommand(const CommandContext &context, const std::string &file, OutputFormat format)
{
    const bool toStandardOutput = file == kStandardStream;
    if (file.empty())
        return reportWrongUsage(localized("Donnez un fichier, ou « - » pour la sortie standard."));
    if (toStandardOutput && format == OutputFormat::Json)
        return reportWrongUsage(localized("« - » et --json écrivent tous deux sur la sortie standard."));
    const auto session = StateSession::open(context);
    if (session == nullptr)
        return kFailed;
    FontIndexStore &store = *session->state().store();
    const auto saved = toStandardOutput ? writeStandardOutput(store) : writeBackupFile(file, store);
    if (!saved)
        return reportFailure(displayText(saved.error()));
    std::cerr << localized("Sauvegarde : %1.", {backupSummary(*saved)}) << '\n';
    printCounts(*saved, format);
    return kDone;
}

int runRestoreCommand(const CommandContext &context, const std::string &file, OutputFormat format)
{
    if (file.empty())
        return reportWrongUsage(localized("Donnez un fichier, ou « - » pour l’entrée standard."));
    const auto data = file == kStandardStream ? readStandardInput() : readBackupFile(file);
    if (!data)
        return reportFailure(localized("« %1 » ne peut pas être restauré : %2. Rien n’a changé.",
                                       {displayText(file), displayText(data.error())}));
    const auto session = StateSession::open(context);
    if (session == nullptr)
        return kFailed;
    if (const auto restored = session->state().store()->restore(*data); !restored) {
        reportStoreError(restored.error(), context.directories);
        return kFailed;
    }
    session->state().reloadUserData();
    std::cerr << localized("Restauré : %1.", {backupSummary(*data)}) << '\n';
    printCounts(*data, format);
    return kDone;
}

} // namespace kerlune
