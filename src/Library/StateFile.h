#pragma once

#include "Platform/FileLock.h"

#include <nlohmann/json.hpp>
#include <tl/expected.hpp>

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace kerlune {

// A JSON file with the user's own data, open for a change on top of what it holds: until it is closed, no other process
// changes it.
//
// Thread: any, one at a time; the operations block.
class StateFile final {
public:
    enum class Former {
        Replace,
        Keep, // a copy under another name: it could not be understood
    };

    // Waits until no other process has it open. Never null: a file that cannot be locked is read all the same, and
    // cannot be saved.
    static std::shared_ptr<StateFile> open(const std::filesystem::path &file,
                                           std::chrono::milliseconds longestWait = std::chrono::seconds(10));

    // Another process holds the file and does not let it go: nothing should be changed now. The text is for the user.
    std::optional<std::string> obstacle() const;

    bool exists() const { return m_exists; }
    const std::optional<nlohmann::json> &content() const { return m_content; } // absent when it is no JSON

    // Replaces the file as a whole. An error is a message for the user; the file is then as it was.
    std::optional<std::string> save(const nlohmann::json &content, Former former) const;

    void close(); // goes without saying where the object goes too

private:
    StateFile(std::filesystem::path file, std::chrono::milliseconds longestWait);

    std::filesystem::path m_file;
    tl::expected<FileLock, FileLock::Error> m_lock; // before the content: it is read under the lock
    bool m_exists;
    std::optional<nlohmann::json> m_content;
};

} // namespace kerlune
