#pragma once

#include "Platform/RegistrationError.h"

#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace kerlune {

// A folder of symbolic links to font files, which fontconfig reads. A link is named after its file and, so that two
// files never share a name, after a hash of its whole path; what the path was is read from the link. Anything else in
// the folder belongs to somebody else and is never touched.
//
// Thread: any, and any process at the same time. Blocks; files are checked on all cores.
class FontLinks final {
public:
    explicit FontLinks(std::filesystem::path folder);

    // Links absolute paths of fonts; one that is linked already stays so. Errors in the order of the paths.
    std::vector<RegistrationError> add(std::span<const std::string> paths) const;

    // Removes the links to these paths, whether the files still exist or not. A path without a link is no error.
    std::vector<RegistrationError> remove(std::span<const std::string> paths) const;

    // The paths that are linked, sorted.
    std::vector<std::string> paths() const;

private:
    std::filesystem::path m_folder;
};

} // namespace kerlune
