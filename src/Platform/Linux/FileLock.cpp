#include "Platform/FileLock.h"

#include "Support/Localization.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <thread>
#include <utility>

namespace kerlune {

namespace {

constexpr std::chrono::milliseconds kPause{2};

FileLock::Error systemError()
{
    return {false, std::generic_category().message(errno)};
}

} // namespace

tl::expected<FileLock, FileLock::Error> FileLock::acquire(const std::filesystem::path &file,
                                                          std::chrono::milliseconds longest)
{
    std::error_code ignored; // a folder that could not be made shows when the file is opened
    std::filesystem::create_directories(file.parent_path(), ignored);
    const int descriptor = open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (descriptor < 0)
        return tl::unexpected(systemError());
    FileLock lock(descriptor);

    const auto end = std::chrono::steady_clock::now() + longest;
    while (flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR)
            return tl::unexpected(systemError());
        if (std::chrono::steady_clock::now() >= end)
            return tl::unexpected(Error{true, localized("un autre programme l’utilise")});
        std::this_thread::sleep_for(kPause);
    }
    return lock;
}

FileLock::~FileLock()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

FileLock::FileLock(FileLock &&other) noexcept
    : m_descriptor(std::exchange(other.m_descriptor, -1))
{}

FileLock &FileLock::operator=(FileLock &&other) noexcept
{
    std::swap(m_descriptor, other.m_descriptor);
    return *this;
}

} // namespace kerlune
