#include "Platform/ContentDigest.h"

#include "Support/Sha256.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace kerlune {

namespace {

class OpenFile final {
public:
    // Without O_NONBLOCK, opening a pipe that nobody writes to would wait for ever.
    explicit OpenFile(const std::string &path)
        : m_descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY))
    {}
    ~OpenFile()
    {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }
    OpenFile(const OpenFile &) = delete;
    OpenFile &operator=(const OpenFile &) = delete;

    bool isFileOfSize(std::uint64_t size) const
    {
        struct stat status = {};
        return m_descriptor >= 0 && fstat(m_descriptor, &status) == 0 && S_ISREG(status.st_mode) &&
               static_cast<std::uint64_t>(status.st_size) == size;
    }

    // The number of bytes read; 0 at the end, negative after an error.
    ssize_t read(std::span<std::uint8_t> buffer) const
    {
        ssize_t count = 0;
        do
            count = ::read(m_descriptor, buffer.data(), buffer.size());
        while (count < 0 && errno == EINTR);
        return count;
    }

private:
    int m_descriptor;
};

} // namespace

std::optional<std::string> contentDigest(const std::string &path, std::uint64_t size, std::span<std::uint8_t> buffer)
{
    const OpenFile file(path);
    if (!file.isFileOfSize(size))
        return std::nullopt;
    Sha256 sha;
    std::uint64_t total = 0;
    while (total <= size) { // a file that grows all the time comes to an end too
        const ssize_t count = file.read(buffer);
        if (count < 0)
            return std::nullopt;
        if (count == 0)
            break;
        sha.update(buffer.first(static_cast<std::size_t>(count)));
        total += static_cast<std::uint64_t>(count);
    }
    return total == size ? std::optional(sha.hexDigest()) : std::nullopt;
}

} // namespace kerlune
