#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace kerlune {

// What lies in the folder of installed Google families: for each family a folder with its fonts, its licence and
// family.json, which holds the family's name. A folder without that goes by its own name; one without fonts counts as
// none.
//
// Thread: any; blocks while it reads.

inline constexpr std::string_view kFamilyFile = "family.json";

// Folders by the name of the family.
std::map<std::string, std::filesystem::path> installedFamilies(const std::filesystem::path &root);

// The font files right in a folder, sorted.
std::vector<std::string> fontFilesIn(const std::filesystem::path &folder);

} // namespace kerlune
