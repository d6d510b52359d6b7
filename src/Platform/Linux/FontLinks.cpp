#include "Platform/Linux/FontLinks.h"

#include "Platform/FontCatalog.h"
#include "Platform/FontFileNames.h"
#include "Support/ParallelFor.h"
#include "Support/Sha256.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <functional>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

namespace kerlune {

namespace {

namespace fs = std::filesystem;
using Reason = RegistrationError::Reason;

constexpr std::size_t kHashDigits = 32; // 128 bits of SHA-256
// With hash and extension below the 143 bytes that an encrypted home (eCryptfs) leaves to a name.
constexpr std::size_t kLongestStem = 96;

// A name that neither a terminal nor fontconfig takes amiss: no control characters, not hidden, whole characters.
std::string readableStem(std::string_view stem)
{
    std::string readable(stem.substr(0, kLongestStem));
    if (readable.size() < stem.size()) {
        while (!readable.empty() && (static_cast<unsigned char>(stem[readable.size()]) & 0xC0) == 0x80)
            readable.pop_back(); // UTF-8 continuation bytes are 10xxxxxx
    }
    std::replace_if(
        readable.begin(), readable.end(), [](unsigned char c) { return c < 0x20 || c == 0x7F; }, '_');
    if (readable.starts_with('.'))
        readable.front() = '_';
    return readable;
}

std::string linkName(const std::string &path)
{
    const fs::path name = fs::path(path).filename();
    const std::string extension = hasFontName(name.native()) ? name.extension().native() : std::string();
    const std::string_view stem = std::string_view(name.native()).substr(0, name.native().size() - extension.size());
    return readableStem(stem) + '~' + sha256Hex(path).substr(0, kHashDigits) + extension;
}

std::optional<std::string> readLink(const fs::path &link)
{
    std::array<char, PATH_MAX> target{};
    const ssize_t size = readlink(link.c_str(), target.data(), target.size());
    if (size < 0)
        return std::nullopt;
    return std::string(target.data(), static_cast<std::size_t>(size));
}

Reason reasonForErrno(int code)
{
    switch (code) {
    case ENOSPC:
    case EDQUOT:
        return Reason::NoRoom;
    case EACCES:
    case EPERM:
    case EROFS:
    case ENOTDIR:
        return Reason::FolderNotWritable;
    case EEXIST:
        return Reason::NameTaken;
    default:
        return Reason::SystemError;
    }
}

// A font that only lacks what the index needs is one for other programs all the same.
std::optional<FontError> whyNoFont(const std::string &path)
{
    const FontCatalog::Listing listing = fontsOfFile(path);
    if (!listing.fonts.empty())
        return std::nullopt;
    for (const SkippedFont &face : listing.skipped) {
        if (face.reason == FontError::NoPostScriptName || face.reason == FontError::HiddenName)
            return std::nullopt;
    }
    return listing.skipped.empty() ? FontError::Damaged : listing.skipped.front().reason;
}

std::vector<RegistrationError>
forEachPath(std::span<const std::string> paths,
            const std::function<std::optional<RegistrationError>(const std::string &)> &operation)
{
    std::vector<std::optional<RegistrationError>> results(paths.size());
    parallelForRanges(paths.size(), [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i != last; ++i)
            results[i] = operation(paths[i]);
    });
    std::vector<RegistrationError> errors;
    for (std::optional<RegistrationError> &result : results) {
        if (result)
            errors.push_back(*std::move(result));
    }
    return errors;
}

} // namespace

FontLinks::FontLinks(fs::path folder)
    : m_folder(std::move(folder))
{}

std::vector<RegistrationError> FontLinks::add(std::span<const std::string> paths) const
{
    std::error_code folderError;
    fs::create_directories(m_folder, folderError);
    const fs::path ownFolder = folderError ? fs::path() : fs::canonical(m_folder, folderError);
    return forEachPath(paths, [&](const std::string &path) -> std::optional<RegistrationError> {
        if (!path.starts_with('/'))
            return RegistrationError{path, Reason::UnusableFile, FontError::NotFound};
        if (folderError)
            return RegistrationError{path, reasonForErrno(folderError.value())};
        const fs::path link = m_folder / linkName(path);
        std::error_code ignored;
        if (readLink(link) == path && fs::exists(path, ignored))
            return std::nullopt;
        if (const fs::path folder = fs::weakly_canonical(fs::path(path).parent_path(), ignored); folder == ownFolder)
            return RegistrationError{path, Reason::OwnRegistration};
        if (const auto error = whyNoFont(path))
            return RegistrationError{path, Reason::UnusableFile, *error};
        if (symlink(path.c_str(), link.c_str()) == 0 || (errno == EEXIST && readLink(link) == path))
            return std::nullopt;
        return RegistrationError{path, reasonForErrno(errno)};
    });
}

std::vector<RegistrationError> FontLinks::remove(std::span<const std::string> paths) const
{
    return forEachPath(paths, [&](const std::string &path) -> std::optional<RegistrationError> {
        const fs::path link = m_folder / linkName(path);
        if (readLink(link) != path || unlink(link.c_str()) == 0 || errno == ENOENT)
            return std::nullopt;
        return RegistrationError{path, reasonForErrno(errno)};
    });
}

std::vector<std::string> FontLinks::paths() const
{
    std::vector<std::string> paths;
    std::error_code error;
    for (fs::directory_iterator entry(m_folder, error), end; !error && entry != end; entry.increment(error)) {
        if (auto target = readLink(entry->path()); target && linkName(*target) == entry->path().filename().native())
            paths.push_back(*std::move(target));
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

} // namespace kerlune
