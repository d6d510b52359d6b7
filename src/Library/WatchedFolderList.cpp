#include "Library/WatchedFolderList.h"

#include "Library/FolderScan.h"
#include "Library/StateFile.h"
#include "Support/JsonFile.h"
#include "Support/Text.h"

#include <utility>

namespace kerlune {

namespace {

std::optional<std::vector<WatchedFolder>> decodeList(const std::optional<nlohmann::json> &content)
{
    auto folders = content ? decodeFolders(*content) : std::nullopt;
    if (!folders)
        return std::nullopt;
    std::erase_if(*folders, [](const WatchedFolder &folder) {
        return folder.isManagedLibrary || folder.path.empty() || folder.path.find('\0') != std::string::npos;
    });
    for (WatchedFolder &folder : *folders) {
        if (std::string normal = normalisedPath(folder.path); isValidUtf8(normal)) // a link may lead where it is not
            folder.path = std::move(normal);
    }
    return folders;
}

} // namespace

std::optional<std::vector<WatchedFolder>> readFolderList(const std::filesystem::path &file)
{
    return decodeList(readJsonFile(file));
}

EditedFolderList editFolderList(const std::filesystem::path &file, std::vector<WatchedFolder> otherwise,
                                const std::function<void(std::vector<WatchedFolder> &)> &edit)
{
    const auto list = StateFile::open(file);
    const auto stored = decodeList(list->content());
    std::vector<WatchedFolder> folders = stored.value_or(std::move(otherwise));
    edit(folders);
    const bool wasUnderstood = stored || !list->exists();
    auto saveError =
        list->save(encodeFolders(folders), wasUnderstood ? StateFile::Former::Replace : StateFile::Former::Keep);
    return {std::move(folders), std::move(saveError)};
}

} // namespace kerlune
