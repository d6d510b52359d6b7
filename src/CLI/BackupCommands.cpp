#include "CLI/Commands.h"
#include "CLI/DisplayText.h"
#include "CLI/Output.h"
#include "CLI/StateSession.h"
#include "CLI/StoreAccess.h"
#include "State/Backup.h"
#include "Support/JsonFile.h"
#include "Support/Localization.h"

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <set>
#include <system_error>

namespace kerlune {

namespace {

namespace fs = std::filesystem;
using nlohmann::json;

constexpr const char *kStandardStream = "-";
constexpr std::size_t kMostBytes = 64U << 20;

std::int64_t tagCount(const UserData &data)
{
    std::set<std::string> names;
    for (const auto &[family, tags] : data.tags)
        names.insert(tags.begin(), tags.end());
    return static_cast<std::int64_t>(names.size());
}

std::string counted(const UserData &data)
{
    const auto size = [](const auto &elements) { return static_cast<std::int64_t>(elements.size()); };
    return localized(
        "%1, %2, %3, %4, %5",
        {localizedCount("%1 tag", "%1 tags", tagCount(data)),
         localizedCount("%1 collection", "%1 collections", size(data.collections)),
         localizedCount("%1 collection intelligente", "%1 collections intelligentes", size(data.smartCollections)),
         localizedCount("%1 favori", "%1 favoris", size(data.favorites)),
         localizedCount("%1 famille récente", "%1 familles récentes", size(data.recents))});
}

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

// Why a backup must not be written there; empty when it may.
std::string objection(const fs::path &file)
{
    const std::string shown = displayText(file.native());
    std::error_code error;
    const fs::path folder = fs::absolute(file, error).parent_path();
    if (!fs::is_directory(folder, error))
        return localized("Le dossier de « %1 » n’existe pas.", {shown});
    if (!fs::exists(fs::symlink_status(file, error)))
        return {};
    const auto present = readJsonFile(file);
    if (present && decodeBackup(*present))
        return {};
    return localized("« %1 » existe et n’est pas une sauvegarde de Kerlune ; il n’a pas été modifié.", {shown});
}

tl::expected<json, std::string> parsed(const std::string &bytes)
{
    json value = json::parse(bytes, nullptr, false);
    if (value.is_discarded())
        return tl::unexpected(localized("ce n’est pas du JSON"));
    return value;
}

tl::expected<json, std::string> readStandardInput()
{
    std::string bytes(kMostBytes + 1, '\0');
    std::cin.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(std::cin.gcount()));
    if (bytes.size() > kMostBytes)
        return tl::unexpected(localized("plus de 64 Mio"));
    return parsed(bytes);
}

tl::expected<json, std::string> readBackup(const fs::path &file)
{
    if (file == kStandardStream)
        return readStandardInput();
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    if (!fs::exists(status))
        return tl::unexpected(localized("fichier introuvable"));
    if (!fs::is_regular_file(status))
        return tl::unexpected(localized("pas un fichier"));
    if (fs::file_size(file, error) > kMostBytes)
        return tl::unexpected(localized("plus de 64 Mio"));
    if (!std::ifstream(file))
        return tl::unexpected(std::generic_category().message(errno));
    auto value = readJsonFile(file);
    if (!value)
        return tl::unexpected(localized("ce n’est pas du JSON"));
    return *std::move(value);
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
    const auto data = session->state().store()->userData();
    if (!data)
        return reportFailure(localized("Ce que contient la base de données ne peut pas être lu en entier ; rien n’a "
                                       "été sauvegardé."));
    const json backup = encodeBackup(*data);
    const auto held = decodeBackup(backup);
    if (!held)
        return reportFailure(
            localized("La sauvegarde ne pourrait pas être restaurée : %1.", {displayText(held.error())}));
    if (toStandardOutput) {
        std::cout << backup.dump(2) << '\n';
    } else {
        if (const std::string why = objection(file); !why.empty())
            return reportFailure(why);
        if (const auto written = writeJsonFile(file, backup); !written)
            return reportFailure(
                localized("Écriture de « %1 » impossible : %2", {displayText(file), displayText(written.error())}));
    }
    std::cerr << localized("Sauvegarde : %1.", {counted(*held)}) << '\n';
    printCounts(*held, format);
    return kDone;
}

int runRestoreCommand(const CommandContext &context, const std::string &file, OutputFormat format)
{
    if (file.empty())
        return reportWrongUsage(localized("Donnez un fichier, ou « - » pour l’entrée standard."));
    const auto data = readBackup(file).and_then([](const json &backup) { return decodeBackup(backup); });
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
    std::cerr << localized("Restauré : %1.", {counted(*data)}) << '\n';
    printCounts(*data, format);
    return kDone;
}

} // namespace kerlune
