#include "Platform/Directories.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <system_error>

namespace kerlune {

namespace {

constexpr const char *kFolder = "Kerlune";

std::filesystem::path absolutePath(const char *variable)
{
    const char *value = std::getenv(variable); // NOLINT(concurrency-mt-unsafe): nobody changes the environment
    const std::filesystem::path path(value == nullptr ? "" : value);
    return path.is_absolute() ? path : std::filesystem::path();
}

std::filesystem::path homeFolder()
{
    if (auto home = absolutePath("HOME"); !home.empty())
        return home;
    const passwd *user = getpwuid(getuid()); // NOLINT(concurrency-mt-unsafe): called once, at start
    return user == nullptr ? "/" : user->pw_dir;
}

std::filesystem::path folder(const char *variable, const char *belowHome)
{
    auto path = absolutePath(variable);
    return path.empty() ? homeFolder() / belowHome : path;
}

} // namespace

Directories Directories::fromEnvironment()
{
    const auto data = folder("XDG_DATA_HOME", ".local/share");
    return {homeFolder(), data, data / kFolder, folder("XDG_CACHE_HOME", ".cache") / kFolder,
            folder("XDG_CONFIG_HOME", ".config") / kFolder};
}

std::filesystem::path resourcesFolder()
{
    std::error_code error;
    const auto programs = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
    auto beside = programs / "Resources";
    return std::filesystem::is_directory(beside, error) ? beside : programs.parent_path() / "share/kerlune/Resources";
}

std::filesystem::path usualResolveFolder()
{
    return "/opt/resolve";
}

std::filesystem::path userFontsFolder(const Directories &directories)
{
    return directories.userLibrary / "fonts";
}

std::filesystem::path sharedFontsFolder()
{
    return "/usr/local/share/fonts";
}

std::filesystem::path managedLibrary(const Directories &directories)
{
    return directories.userLibrary / kFolder / "Library";
}

std::filesystem::path googleFontsFolder(const Directories &directories)
{
    return directories.userLibrary / kFolder / "Google Fonts";
}

std::filesystem::path activationLinksFolder(const Directories &directories)
{
    return userFontsFolder(directories) / kFolder;
}

} // namespace kerlune
