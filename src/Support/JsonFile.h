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

// A file that holds these bytes already is left as it is.
// Errors: the system's description, or that a text is not valid UTF-8; the old file is then as it was.
tl::expected<void, std::string> writeJsonFile(const std::filesystem::path &file, const nlohmann::json &value);

// Copies a file that could not be understood to a free name beside it, before it is written anew.
// Errors: a description; there is no copy then, not even a part of one.
tl::expected<void, std::string> keepUnreadableFile(const std::filesystem::path &file);

} // namespace kerlune
