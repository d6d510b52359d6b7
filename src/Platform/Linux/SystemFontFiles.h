#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace kerlune {

// What fontconfig makes of its font folders. All paths but those of pipes and of missing folders are resolved.
struct SystemFontFiles {
    std::map<std::string, std::set<std::uint32_t>> offered; // the faces of each file that its rules let through
    std::set<std::string> refused;                          // font files in its folders that it does not offer
    std::vector<std::string> pipes; // when there is one, fontconfig was not asked: it would wait for a writer
    std::map<std::string, std::filesystem::file_time_type> folders; // when changed last; the earliest time if missing
};

// Thread: any. Blocks while fontconfig brings its caches up to date.
SystemFontFiles readSystemFontFiles();

// Whether files have come to the folders, or gone, since then. Thread: any.
bool isUpToDate(const SystemFontFiles &files);

// The folders that fontconfig is told to read, with all below them. Some may be missing. Thread: any.
std::vector<std::string> systemFontFolders();

} // namespace kerlune
