#pragma once

#include "Library/WatchedFolder.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kerlune {

// The list of watched folders on disk, watched-folders.json. The managed library does not stand in it.
//
// Thread: any; blocks.

// Paths normalised. Absent when there is no list, or it cannot be understood as a whole.
std::optional<std::vector<WatchedFolder>> readFolderList(const std::filesystem::path &file);

// Changes what the list says at this moment, which another process may have changed before; where it says nothing,
// `otherwise`.
struct EditedFolderList {
    std::vector<WatchedFolder> folders;   // after the edit
    std::optional<std::string> saveError; // a message for the user
};
EditedFolderList editFolderList(const std::filesystem::path &file, std::vector<WatchedFolder> otherwise,
                                const std::function<void(std::vector<WatchedFolder> &)> &edit);

} // namespace kerlune
