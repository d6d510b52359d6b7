#pragma once

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string>
#include <vector>

namespace kerlune {

// The id of the entry that stands for the managed library.
inline constexpr const char *kManagedLibraryId = "managed-library";

// A folder whose fonts the library shows.
struct WatchedFolder {
    std::string id;            // a UUID, or kManagedLibraryId
    std::string path;          // absolute, symbolic links resolved, no slash at its end but for "/"
    bool autoActivate = false; // new files are activated for every program
    bool isManagedLibrary = false;

    bool operator==(const WatchedFolder &) const = default;
};

// The list as watched-folders.json holds it: an array of objects with the four fields as keys, all of them required.
nlohmann::json encodeFolders(const std::vector<WatchedFolder> &folders);
// Absent when the list as a whole is not of that form.
std::optional<std::vector<WatchedFolder>> decodeFolders(const nlohmann::json &array);

// Whether `path` lies somewhere below `folder`. Both absolute and normal.
bool isBelow(const std::string &path, const std::string &folder);

} // namespace kerlune

template <>
struct std::hash<kerlune::WatchedFolder> {
    std::size_t operator()(const kerlune::WatchedFolder &folder) const;
};
