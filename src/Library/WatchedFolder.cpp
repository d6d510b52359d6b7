#include "Library/WatchedFolder.h"

#include "Support/Hash.h"

#include <nlohmann/json.hpp>

#include <utility>

namespace kerlune {

namespace {

std::optional<WatchedFolder> decodeFolder(const nlohmann::json &object)
{
    const auto value = [&](const char *key) {
        const auto found = object.find(key);
        return found == object.end() ? nlohmann::json() : *found;
    };
    if (!object.is_object())
        return std::nullopt;
    const nlohmann::json id = value("id");
    const nlohmann::json path = value("path");
    const nlohmann::json autoActivate = value("autoActivate");
    const nlohmann::json isManagedLibrary = value("isManagedLibrary");
    if (!id.is_string() || !path.is_string() || !autoActivate.is_boolean() || !isManagedLibrary.is_boolean())
        return std::nullopt;
    return WatchedFolder{id.get<std::string>(), path.get<std::string>(), autoActivate.get<bool>(),
                         isManagedLibrary.get<bool>()};
}

} // namespace

nlohmann::json encodeFolders(const std::vector<WatchedFolder> &folders)
{
    auto array = nlohmann::json::array();
    for (const WatchedFolder &folder : folders) {
        array.push_back({{"id", folder.id},
                         {"path", folder.path},
                         {"autoActivate", folder.autoActivate},
                         {"isManagedLibrary", folder.isManagedLibrary}});
    }
    return array;
}

std::optional<std::vector<WatchedFolder>> decodeFolders(const nlohmann::json &array)
{
    if (!array.is_array())
        return std::nullopt;
    std::vector<WatchedFolder> folders;
    for (const nlohmann::json &object : array) {
        auto folder = decodeFolder(object);
        if (!folder || folder->path.empty())
            return std::nullopt;
        folders.push_back(*std::move(folder));
    }
    return folders;
}

bool isBelow(const std::string &path, const std::string &folder)
{
    return path.size() > folder.size() && path.starts_with(folder) &&
           (folder.ends_with('/') || path[folder.size()] == '/');
}

} // namespace kerlune

std::size_t std::hash<kerlune::WatchedFolder>::operator()(const kerlune::WatchedFolder &folder) const
{
    kerlune::Hasher hasher;
    hasher.feed(folder.id, folder.path, folder.autoActivate, folder.isManagedLibrary);
    return hasher.value();
}
