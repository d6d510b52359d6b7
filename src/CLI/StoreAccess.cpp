#include "CLI/StoreAccess.h"

#include "CLI/DisplayText.h"
#include "CLI/Output.h"
#include "Support/Localization.h"

#include <string>
#include <system_error>

namespace kerlune {

namespace {

using StoreError = FontIndexStore::StoreError;

// SQLite reports a disk without room for its side files as one that cannot be opened or written.
bool isDiskFull(const std::filesystem::path &folder)
{
    std::error_code error;
    const auto space = std::filesystem::space(folder, error);
    constexpr std::uintmax_t kLeastRoom = 64U << 10;
    return !error && space.available < kLeastRoom;
}

std::string advice(StoreError::Cause cause, const Directories &directories)
{
    if (cause == StoreError::Cause::diskFull || isDiskFull(directories.applicationSupport))
        return localized("Le disque est plein. L’index précédent est conservé.");
    switch (cause) {
    case StoreError::Cause::notWritable:
        return localized("Vérifiez que ce dossier existe et que vous pouvez y écrire.");
    case StoreError::Cause::notADatabase:
        return localized("Ce fichier n’est pas une base de données. Il n’a pas été modifié ; déplacez-le pour que "
                         "Kerlune en crée une nouvelle.");
    case StoreError::Cause::damaged:
        return localized("La base de données est endommagée. Mettez-la de côté avant d’en créer une nouvelle : elle "
                         "contient vos favoris, collections et tags.");
    case StoreError::Cause::inUse:
        return localized("Un autre programme écrit dans l’index. Réessayez dans un instant.");
    case StoreError::Cause::diskFull:
    case StoreError::Cause::other:
        break;
    }
    return {};
}

} // namespace

std::unique_ptr<FontIndexStore> openStore(const Directories &directories)
{
    auto store = FontIndexStore::open(FontIndexStore::defaultPath(directories.applicationSupport));
    if (store)
        return *std::move(store);
    reportStoreError(store.error(), directories);
    return nullptr;
}

void reportStoreError(const StoreError &error, const Directories &directories)
{
    const auto path = directories.applicationSupport / "index.sqlite";
    printMessage(error.description() + " (" + displayText(path.native()) + ')');
    if (const std::string text = advice(error.cause, directories); !text.empty())
        printMessage(text);
}

std::string whyNothingWasWritten(const Directories &directories)
{
    return isDiskFull(directories.applicationSupport)
               ? localized("Écriture impossible : le disque est plein. Rien n’a changé.")
               : localized("Écriture impossible : la base de données n’accepte pas la modification. Elle est "
                           "endommagée, protégée ou occupée par un autre programme. Rien n’a changé.");
}

} // namespace kerlune
