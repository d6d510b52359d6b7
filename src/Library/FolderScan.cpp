#include "Library/FolderScan.h"

#include "Platform/FontFileNames.h"
#include "Support/Text.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>
#include <system_error>
#include <utility>

namespace kerlune {

namespace {

namespace fs = std::filesystem;

// Folders that other systems show as one file.
bool isPackage(const fs::path &folder)
{
    static constexpr std::array<std::string_view, 30> kExtensions{
        ".app",           ".appex",    ".band",        ".bundle",        ".component",   ".fcpbundle",
        ".imovielibrary", ".key",      ".kext",        ".logicx",        ".mdimporter",  ".mpkg",
        ".musiclibrary",  ".numbers",  ".pages",       ".photoslibrary", ".pkg",         ".playground",
        ".plugin",        ".prefpane", ".qlgenerator", ".rtfd",          ".saver",       ".scptd",
        ".sparsebundle",  ".wdgt",     ".workflow",    ".xcodeproj",     ".xcworkspace", ".xpc"};
    const std::string extension = lowercased(folder.extension().native());
    return std::find(kExtensions.begin(), kExtensions.end(), extension) != kExtensions.end();
}

class Scan final {
public:
    Scan(const fs::path &leftOut, const std::stop_token &stop)
        : m_leftOut(leftOut)
        , m_stop(stop)
    {}

    void enter(const fs::path &folder)
    {
        if (folder == m_leftOut)
            return;
        std::error_code error; // of a folder that cannot be read, or not to its end, the rest is passed over
        for (fs::directory_iterator entry(folder, error), end; !error && entry != end && !m_stop.stop_requested();
             entry.increment(error))
            visit(*entry);
    }

    std::vector<fs::path> subfolders;
    std::vector<std::string> files;

private:
    void visit(const fs::directory_entry &entry)
    {
        std::error_code error;
        const std::string &path = entry.path().native();
        if (entry.path().filename().native().front() == '.')
            return;
        if (entry.is_directory(error) && !entry.is_symlink(error)) {
            if (!isPackage(entry.path()))
                subfolders.push_back(entry.path());
        } else if (hasDesktopFontName(path) && entry.is_regular_file(error) && isValidUtf8(path)) {
            files.push_back(path);
        }
    }

    const fs::path &m_leftOut;
    const std::stop_token &m_stop;
};

} // namespace

std::string normalisedPath(const fs::path &path)
{
    std::error_code error;
    fs::path normal = fs::weakly_canonical(fs::absolute(path, error), error);
    if (error)
        normal = fs::absolute(path, error).lexically_normal();
    std::string text = normal.native();
    while (text.size() > 1 && text.ends_with('/'))
        text.pop_back();
    return text;
}

std::vector<std::string> scanFolder(const std::string &folder, const fs::path &leftOut, const std::stop_token &stop)
{
    Scan scan(leftOut, stop);
    scan.subfolders.emplace_back(folder);
    while (!scan.subfolders.empty()) {
        const fs::path next = std::move(scan.subfolders.back());
        scan.subfolders.pop_back();
        scan.enter(next);
    }
    std::sort(scan.files.begin(), scan.files.end());
    return std::move(scan.files);
}

ScanChanges changesBetween(const std::vector<std::string> &before, const std::vector<std::string> &after)
{
    ScanChanges changes;
    std::set_difference(after.begin(), after.end(), before.begin(), before.end(), std::back_inserter(changes.added));
    std::set_difference(before.begin(), before.end(), after.begin(), after.end(), std::back_inserter(changes.removed));
    return changes;
}

} // namespace kerlune
