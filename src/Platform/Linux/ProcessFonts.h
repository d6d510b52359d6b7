#pragma once

#include <mutex>
#include <span>
#include <string>
#include <vector>

namespace kerlune {

// The font files registered for this process, in registration order: what the registry writes and the catalogue reads.
//
// Thread: any.
class ProcessFonts final {
public:
    std::vector<std::string> paths() const;

    // Both say whether anything changed.
    bool add(std::span<const std::string> paths);
    bool remove(std::span<const std::string> paths);

private:
    mutable std::mutex m_mutex;
    std::vector<std::string> m_paths;
};

} // namespace kerlune
