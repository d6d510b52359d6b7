#include "State/BackupFile.h"

#include "Store/FontIndexStore.h"
#include "Support/JsonFile.h"
#include "Support/Localization.h"

#include <cerrno>
#include <fstream>
#include <set>
#include <system_error>
#include <utility>

namespace kerlune {

namespace {

namespace fs = std::filesystem;
using nlohmann::json;

// Why a backup must not be written there; empty when it may.
std::string objection(const fs::path &file)
{
    std::error_code error;
    const fs::path folder = fs::absolute(file, error).parent_path();
    if (!fs::is_directory(folder, error))
        return localized("Le dossier de « %1 » n’existe pas.", {file.native()});
    if (!fs::exists(fs::symlink_status(file, error)))
        return {};
    const auto present = readJsonFile(file);
    if (present && decodeBackup(*present))
        return {};
    return localized("« %1 » existe et n’est pas une sauvegarde de Kerlune ; il n’a pas été modifié.", {file.native()});
}

} // namespace

tl::expected<BackupContent, std::string> backupOf(FontIndexStore &store)
{
    const auto data = store.userData();
    if (!data)
        return tl::unexpected(localized("Ce que contient la base de données ne peut pas être lu en entier ; rien n’a "
                                        "été sauvegardé."));
    json backup = encodeBackup(*data);
    auto held = decodeBackup(backup);
    if (!held)
        return tl::unexpected(localized("La sauvegarde ne pourrait pas être restaurée : %1.", {held.error()}));
    return BackupContent{std::move(backup), *std::move(held)};
}

tl::expected<UserData, std::string> writeBackupFile(const fs::path &file, FontIndexStore &store)
{
    auto content = backupOf(store);
    if (!content)
        return tl::unexpected(content.error());
    if (std::string why = objection(file); !why.empty())
        return tl::unexpected(std::move(why));
    if (const auto written = writeJsonFile(file, content->json); !written)
        return tl::unexpected(localized("Écriture de « %1 » impossible : %2", {file.native(), written.error()}));
    return std::move(content->data);
}

tl::expected<UserData, std::string> readBackupFile(const fs::path &file)
{
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    if (!fs::exists(status))
        return tl::unexpected(localized("fichier introuvable"));
    if (!fs::is_regular_file(status))
        return tl::unexpected(localized("pas un fichier"));
    if (fs::file_size(file, error) > kMostBackupBytes)
        return tl::unexpected(localized("plus de 64 Mio"));
    if (!std::ifstream(file))
        return tl::unexpected(std::generic_category().message(errno));
    const auto value = readJsonFile(file);
    if (!value)
        return tl::unexpected(localized("ce n’est pas du JSON"));
    return decodeBackup(*value);
}

tl::expected<UserData, std::string> readBackupText(const std::string &text)
{
    if (text.size() > kMostBackupBytes)
        return tl::unexpected(localized("plus de 64 Mio"));
    const json value = json::parse(text, nullptr, false);
    if (value.is_discarded())
        return tl::unexpected(localized("ce n’est pas du JSON"));
    return decodeBackup(value);
}

std::int64_t tagCount(const UserData &data)
{
    std::set<std::string> names;
    for (const auto &[family, tags] : data.tags)
        names.insert(tags.begin(), tags.end());
    return static_cast<std::int64_t>(names.size());
}

std::string backupSummary(const UserData &data)
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

} // namespace kerlune
