#include "Library/WatchedFolder.h"

#include "Support/Hash.h"

#include <nlohmann/json.hpp>

#include <utility>

namespace kerlune {

namespace {

// Null when there is no such key. Nothing is copied: a value may be nested deeper than a copy could go.
const nlohmann::json *find(const nlohmann::json &object, const char *key)
{
    const auto found = object.find(key);
    return found == object.end() ? nullptr : &*found;
}

std::optional<WatchedFolder> decodeFolder(const nlohmann::json &object)
{
    if (!object.is_object())
        return std::nullopt;
    const nlohmann::json *id = find(object, "id");
    const nlohmann::json *path = find(object, "path");
    const nlohmann::json *autoActivate = find(object, "autoActivate");
    const nlohmann::json *isManagedLibrary = find(object, "isManagedLibrary");
    if (id == nullptr || path == nullptr || autoActivate == nullptr || isManagedLibrary == nullptr)
        return std::nullopt;
    if (!id->is_string() || !path->is_string() || !autoActivate->is_boolean() || !isManagedLibrary->is_boolean())
        return std::nullopt;
    return WatchedFolder{id->get<std::string>(), path->get<std::string>(), autoActivate->get<bool>(),
                         isManagedLibrary->get<bool>()};
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
        if (!folder)
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
