#pragma once

#include <tl/expected.hpp>

#include <chrono>
#include <filesystem>
#include <string>

namespace kerlune {

// Keeps every other holder of the same lock out, in this process and in others, while it lives. The system takes it
// from a process that ends, however that ends.
//
// Thread: any; may be released on another one than it was taken.
class FileLock final {
public:
    struct Error {
        bool isHeldByOther; // to the end of the wait; else the file cannot be opened or locked at all
        std::string description;
    };

    // Waits for its turn, but no longer than that. The file is created, with its folder, and stays.
    static tl::expected<FileLock, Error> acquire(const std::filesystem::path &file,
                                                 std::chrono::milliseconds longest = std::chrono::seconds(10));

    ~FileLock();
    FileLock(FileLock &&other) noexcept;
    FileLock &operator=(FileLock &&other) noexcept;

private:
    explicit FileLock(int descriptor)
        : m_descriptor(descriptor)
    {}

    int m_descriptor; // −1 when it was moved away
};

} // namespace kerlune
