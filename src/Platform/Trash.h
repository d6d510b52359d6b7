#pragma once

#include <tl/expected.hpp>

#include <filesystem>
#include <string>

namespace kerlune {

// Moves a file, or a folder with all that it holds, to the desktop's trash, from which the user can bring it back.
// Under Linux that is the freedesktop.org trash of the same file system.
//
// Thread: any; blocks.
// Errors: the system's description; everything is then where it was.
tl::expected<void, std::string> moveToTrash(const std::filesystem::path &path);

} // namespace kerlune
