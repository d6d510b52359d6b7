#pragma once

#include <filesystem>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace kerlune {

// Absolute, without "." and "..", symbolic links resolved as far as the path exists, no slash at the end.
//
// Thread: any; blocks.
std::string normalisedPath(const std::filesystem::path &path);

// The font files in a folder and its subfolders, by their extension alone, sorted; paths that are not UTF-8 are left
// out. Hidden files and folders and the inside of packages (folders that are documents or programs) are passed over,
// so are links to folders, what cannot be read, and `leftOut` with everything below it.
//
// Thread: any; blocks. Ends early, with what was found, when `stop` says so.
std::vector<std::string> scanFolder(const std::string &folder, const std::filesystem::path &leftOut = {},
                                    const std::stop_token &stop = {});

// What changed between two scans, each sorted.
struct ScanChanges {
    std::vector<std::string> added;
    std::vector<std::string> removed;
};
ScanChanges changesBetween(const std::vector<std::string> &before, const std::vector<std::string> &after);

} // namespace kerlune
