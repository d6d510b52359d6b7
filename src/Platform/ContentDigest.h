#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace kerlune {

// The SHA-256 digest of a file's bytes, in 64 lower-case hexadecimal digits. The file is read from its start to its end
// in pieces of the buffer's size and never mapped, so that another program may change it meanwhile.
// Absent unless it is a regular file that could be read to its end and had `size` bytes.
//
// Thread: any; blocks while it reads.
std::optional<std::string> contentDigest(const std::string &path, std::uint64_t size, std::span<std::uint8_t> buffer);

} // namespace kerlune
