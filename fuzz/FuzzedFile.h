#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <string>

namespace kerlune {

// The path of a file in memory that holds these bytes until the next call.
inline const std::string &fuzzedFile(const std::uint8_t *bytes, std::size_t size)
{
    static const int file = memfd_create("font", MFD_CLOEXEC);
    static const std::string path = "/proc/self/fd/" + std::to_string(file);
    if (ftruncate(file, 0) != 0 || pwrite(file, bytes, size, 0) != static_cast<ssize_t>(size))
        std::abort();
    return path;
}

} // namespace kerlune
