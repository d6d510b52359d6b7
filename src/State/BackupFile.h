#pragma once

#include "State/Backup.h"

#include <cstdint>
#include <filesystem>
#include <string>

namespace kerlune {

class FontIndexStore;

// Backups as files.
//
// Thread: any; blocks.
// Errors: a sentence for display; the file and the library are then as they were. File names stand in it as they are.

inline constexpr std::size_t kMostBackupBytes = 64U << 20;

// What the store holds as a backup that can be restored.
struct BackupContent {
    nlohmann::json json = {};
    UserData data = {};
};
tl::expected<BackupContent, std::string> backupOf(FontIndexStore &store);

// A file that is there is replaced only where it is a backup.
tl::expected<UserData, std::string> writeBackupFile(const std::filesystem::path &file, FontIndexStore &store);

// Here the error is only the reason, without the file.
tl::expected<UserData, std::string> readBackupFile(const std::filesystem::path &file);
tl::expected<UserData, std::string> readBackupText(const std::string &text);

std::int64_t tagCount(const UserData &data);
std::string backupSummary(const UserData &data); // "2 tags, 1 collection, …"

} // namespace kerlune
