#include "Platform/Linux/LinkResolver.h"

#include "Support/Handle.h"

#include <sys/stat.h>

#include <cstdlib>

namespace kerlune {

namespace {

std::string realPath(const std::string &path)
{
    const Handle<char, std::free> real(realpath(path.c_str(), nullptr));
    return real == nullptr ? path : std::string(real.get());
}

} // namespace

std::string LinkResolver::resolve(const std::string &path)
{
    struct stat status = {};
    if (!path.starts_with('/') || lstat(path.c_str(), &status) != 0 || S_ISLNK(status.st_mode))
        return realPath(path);
    const std::size_t slash = path.rfind('/');
    std::string folder = path.substr(0, slash);
    auto known = m_folders.find(folder);
    if (known == m_folders.end())
        known = m_folders.emplace(folder, realPath(folder)).first;
    return known->second + path.substr(slash);
}

} // namespace kerlune
