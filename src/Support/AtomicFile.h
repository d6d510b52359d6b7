#pragma once

#include <tl/expected.hpp>

#include <filesystem>
#include <string>
#include <string_view>

namespace kerlune {

// Replaces a file as a whole: a reader sees the old bytes or the new ones, a crash leaves one of the two. The folder
// is created when it is missing.
//
// Thread: any; blocks until the bytes are on the disk.
// Errors: the system's description; the old file is then as it was.
tl::expected<void, std::string> writeFileAtomically(const std::filesystem::path &path, std::string_view bytes);

} // namespace kerlune
