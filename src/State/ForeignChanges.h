#pragma once

#include <QTimer>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

namespace kerlune {

class FontIndexStore;

// Notices that a file was changed, or the database by another process, by looking at them from time to time.
//
// Thread: main, where the reactions are called too.
class ForeignChanges final {
public:
    using Reaction = std::function<void()>;

    explicit ForeignChanges(std::chrono::milliseconds interval);

    // A file, or a folder in which entries come and go; by whichever process.
    void addFile(std::filesystem::path file, Reaction onChange);
    void setDatabase(std::shared_ptr<FontIndexStore> store, Reaction onChange); // by other processes; null is none

    void start(); // changes from now on are told

private:
    struct Stamp {
        std::filesystem::file_time_type modified;
        std::uintmax_t size = 0;

        bool operator==(const Stamp &) const = default;
    };

    struct File {
        std::filesystem::path path;
        Reaction onChange;
        Stamp stamp = {};
    };

    void look();
    static Stamp stampOf(const std::filesystem::path &file);
    std::int64_t dataVersion() const;

    QTimer m_timer;
    std::vector<File> m_files;
    std::shared_ptr<FontIndexStore> m_store;
    Reaction m_onDatabaseChange;
    std::int64_t m_dataVersion = 0;
};

} // namespace kerlune
