#pragma once

#include <nlohmann/json.hpp>
#include <tl/expected.hpp>

#include <filesystem>
#include <optional>
#include <string>

namespace kerlune {

// The JSON files of the program: readable (indented, keys sorted), and replaced as a whole.
//
// Thread: any; blocks.

// Absent when there is no such file, or when it cannot be read, is no JSON, or is longer than 64 MiB.
std::optional<nlohmann::json> readJsonFile(const std::filesystem::path &file);

// Texts have to be valid UTF-8. A file that holds these bytes already is left as it is.
// Errors: the system's description; the old file is then as it was.
tl::expected<void, std::string> writeJsonFile(const std::filesystem::path &file, const nlohmann::json &value);

// Copies a file that could not be understood to a free name beside it, before it is written anew.
void keepUnreadableFile(const std::filesystem::path &file);

} // namespace kerlune
