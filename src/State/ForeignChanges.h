#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

namespace kerlune {

class FontIndexStore;

// Notices that another process has changed the database or one of the state files, by looking at them from time to
// time.
//
// Thread: main.
class ForeignChanges final : public QObject {
    Q_OBJECT

public:
    ForeignChanges(std::vector<std::filesystem::path> files, std::chrono::milliseconds interval);

    void follow(std::shared_ptr<FontIndexStore> store); // which may be null; changes from now on are told

Q_SIGNALS:
    void databaseChanged();
    void filesChanged(); // by this process too

private:
    struct FileStamp {
        std::filesystem::file_time_type modified;
        std::uintmax_t size = 0;

        bool operator==(const FileStamp &) const = default;
    };

    void look();
    std::vector<FileStamp> stamps() const;
    std::int64_t dataVersion() const;

    std::shared_ptr<FontIndexStore> m_store;
    std::vector<std::filesystem::path> m_files;
    QTimer m_timer;
    std::int64_t m_dataVersion = 0;
    std::vector<FileStamp> m_stamps;
};

} // namespace kerlune
