#include "Catalogs/SafeFileName.h"

#include "Support/Sha256.h"
#include "Support/Text.h"

#include <algorithm>

namespace kerlune {

namespace {

constexpr std::size_t kMostBytes = 255; // NAME_MAX of Linux
constexpr std::size_t kBytesOfCut = 96;
constexpr std::size_t kDigits = 32;

std::string withoutBrokenEnd(std::string text)
{
    while (!text.empty() && !isValidUtf8(text))
        text.pop_back();
    return text;
}

} // namespace

std::string fileNameFor(std::string_view name, std::string_view extension)
{
    std::string file(name);
    std::replace(file.begin(), file.end(), '/', '-');
    std::replace(file.begin(), file.end(), '\0', '-');  // it would end the name before its extension
    constexpr std::size_t kRoomForTemporaryEnding = 16; // a file is written under a longer name first
    if (file.size() + extension.size() > kMostBytes - kRoomForTemporaryEnding)
        file = withoutBrokenEnd(file.substr(0, kBytesOfCut)) + '~' + sha256Hex(name).substr(0, kDigits);
    return file.append(extension);
}

std::string visibleFileNameFor(std::string_view name, std::string_view extension)
{
    std::string file = fileNameFor(name, extension);
    std::replace_if(
        file.begin(), file.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, '-');
    if (file.empty() || file.front() == '.')
        file.insert(0, "_");
    return file;
}

} // namespace kerlune
