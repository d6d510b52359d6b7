#include "State/ForeignChanges.h"

#include "Store/FontIndexStore.h"

#include <system_error>
#include <utility>

namespace kerlune {

ForeignChanges::ForeignChanges(std::chrono::milliseconds interval)
{
    m_timer.setInterval(interval);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
}

void ForeignChanges::addFile(std::filesystem::path file, Reaction onChange)
{
    m_files.push_back({std::move(file), std::move(onChange)});
}

void ForeignChanges::setDatabase(std::shared_ptr<FontIndexStore> store, Reaction onChange)
{
    m_store = std::move(store);
    m_onDatabaseChange = std::move(onChange);
}

void ForeignChanges::start()
{
    for (File &file : m_files)
        file.stamp = stampOf(file.path);
    m_dataVersion = dataVersion();
    m_timer.start();
}

void ForeignChanges::look()
{
    for (File &file : m_files) {
        const Stamp former = std::exchange(file.stamp, stampOf(file.path));
        if (file.stamp != former)
            file.onChange();
    }
    const std::int64_t former = std::exchange(m_dataVersion, dataVersion());
    if (m_dataVersion != former)
        m_onDatabaseChange();
}

// A file that is missing has the stamp of none.
ForeignChanges::Stamp ForeignChanges::stampOf(const std::filesystem::path &file)
{
    std::error_code error;
    const auto modified = std::filesystem::last_write_time(file, error);
    const bool isFolder = !error && std::filesystem::is_directory(file, error);
    const auto size = error || isFolder ? 0 : std::filesystem::file_size(file, error);
    return error ? Stamp() : Stamp{modified, size};
}

std::int64_t ForeignChanges::dataVersion() const
{
    return m_store == nullptr ? 0 : m_store->dataVersion().value_or(m_dataVersion); // or the next time
}

} // namespace kerlune
