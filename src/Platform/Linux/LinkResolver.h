#pragma once

#include <string>
#include <unordered_map>

namespace kerlune {

// Resolves the symbolic links of paths, each folder once, as most files of a folder are none.
//
// Thread: one at a time.
class LinkResolver final {
public:
    // A path that leads nowhere comes back as it is.
    std::string resolve(const std::string &path);

private:
    std::unordered_map<std::string, std::string> m_folders; // resolved, by path
};

} // namespace kerlune
