#include "State/ForeignChanges.h"

#include "Store/FontIndexStore.h"

#include <system_error>
#include <utility>

namespace kerlune {

ForeignChanges::ForeignChanges(std::vector<std::filesystem::path> files, std::chrono::milliseconds interval)
    : m_files(std::move(files))
{
    m_timer.setInterval(interval);
    connect(&m_timer, &QTimer::timeout, this, &ForeignChanges::look);
}

void ForeignChanges::follow(std::shared_ptr<FontIndexStore> store)
{
    m_store = std::move(store);
    m_dataVersion = dataVersion();
    m_stamps = stamps();
    m_timer.start();
}

void ForeignChanges::look()
{
    const std::int64_t formerVersion = std::exchange(m_dataVersion, dataVersion());
    const auto formerStamps = std::exchange(m_stamps, stamps());
    if (m_dataVersion != formerVersion)
        Q_EMIT databaseChanged();
    if (m_stamps != formerStamps)
        Q_EMIT filesChanged();
}

std::vector<ForeignChanges::FileStamp> ForeignChanges::stamps() const
{
    std::vector<FileStamp> all;
    for (const std::filesystem::path &file : m_files) {
        std::error_code error; // a file that is missing has the stamp of none
        const auto modified = std::filesystem::last_write_time(file, error);
        const auto size = error ? 0 : std::filesystem::file_size(file, error);
        all.push_back(error ? FileStamp() : FileStamp{modified, size});
    }
    return all;
}

std::int64_t ForeignChanges::dataVersion() const
{
    return m_store == nullptr ? 0 : m_store->dataVersion().value_or(m_dataVersion); // or the next time
}

} // namespace kerlune
