#include "Platform/FontFileNames.h"

#include <algorithm>
#include <array>
#include <string>

namespace kerlune {

namespace {

// Compared byte by byte: no letter beyond ASCII has one of these in its other case.
std::string extensionOf(std::string_view path)
{
    const std::string_view name = path.substr(path.find_last_of('/') + 1);
    const std::size_t dot = name.find_last_of('.');
    if (dot == std::string_view::npos || dot == 0)
        return {};
    std::string extension(name.substr(dot + 1));
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return extension;
}

template <std::size_t Count>
bool isAmong(const std::string &extension, const std::array<std::string_view, Count> &extensions)
{
    return std::find(extensions.begin(), extensions.end(), extension) != extensions.end();
}

constexpr std::array<std::string_view, 5> kDesktop{"otf", "ttf", "ttc", "otc", "dfont"};
constexpr std::array<std::string_view, 2> kWeb{"woff", "woff2"};

} // namespace

bool hasDesktopFontName(std::string_view path)
{
    return isAmong(extensionOf(path), kDesktop);
}

bool hasFontName(std::string_view path)
{
    const std::string extension = extensionOf(path);
    return isAmong(extension, kDesktop) || isAmong(extension, kWeb);
}

} // namespace kerlune
