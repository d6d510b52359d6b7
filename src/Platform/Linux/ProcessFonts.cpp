#include "Platform/Linux/ProcessFonts.h"

#include <unordered_set>

namespace kerlune {

std::vector<std::string> ProcessFonts::paths() const
{
    const std::lock_guard lock(m_mutex);
    return m_paths;
}

bool ProcessFonts::add(std::span<const std::string> paths)
{
    const std::lock_guard lock(m_mutex);
    std::unordered_set<std::string> known(m_paths.begin(), m_paths.end());
    const std::size_t before = m_paths.size();
    for (const std::string &path : paths) {
        if (known.insert(path).second)
            m_paths.push_back(path);
    }
    return m_paths.size() != before;
}

bool ProcessFonts::remove(std::span<const std::string> paths)
{
    const std::lock_guard lock(m_mutex);
    const std::unordered_set<std::string> leaving(paths.begin(), paths.end());
    return std::erase_if(m_paths, [&](const std::string &path) { return leaving.contains(path); }) > 0;
}

} // namespace kerlune
