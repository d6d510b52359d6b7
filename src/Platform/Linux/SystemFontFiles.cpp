#include "Platform/Linux/SystemFontFiles.h"

#include "Platform/FontFileNames.h"
#include "Platform/Linux/LinkResolver.h"
#include "Support/Handle.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <utility>

namespace kerlune {

namespace {

namespace fs = std::filesystem;

fs::file_time_type changeTime(const fs::path &folder)
{
    std::error_code error; // then it is the earliest time
    return fs::last_write_time(folder, error);
}

// Looks through folders as fontconfig does: hidden names are left out, links are followed, each folder is entered once.
class FolderWalk final {
public:
    void enter(const fs::path &folder)
    {
        std::error_code error;
        const fs::path real = fs::canonical(folder, error);
        const std::string &name = error ? folder.native() : real.native();
        if (!folders.emplace(name, changeTime(folder)).second || error)
            return;
        for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
            visit(*entry);
    }

    std::map<std::string, fs::file_time_type> folders; // those entered, resolved, and those that are missing
    std::vector<std::string> fontFiles;                // by their names
    std::vector<std::string> pipes;

private:
    void visit(const fs::directory_entry &entry)
    {
        std::error_code error; // what cannot be looked at is neither folder nor pipe
        if (entry.path().filename().native().front() == '.')
            return;
        if (entry.is_directory(error))
            enter(entry.path());
        else if (entry.is_fifo(error))
            pipes.push_back(entry.path().native());
        else if (hasFontName(entry.path().native()))
            fontFiles.push_back(entry.path().native());
    }
};

// Of a configuration that has not read its fonts yet: afterwards, fontconfig names the subfolders too.
std::vector<std::string> configuredFolders(FcConfig *config)
{
    std::vector<std::string> folders;
    const Handle<FcStrList, FcStrListDone> list(FcConfigGetFontDirs(config));
    for (const FcChar8 *folder = nullptr; list != nullptr && (folder = FcStrListNext(list.get())) != nullptr;)
        folders.emplace_back(reinterpret_cast<const char *>(folder));
    return folders;
}

} // namespace

std::vector<std::string> systemFontFolders()
{
    const Handle<FcConfig, FcConfigDestroy> config(FcInitLoadConfig());
    return config == nullptr ? std::vector<std::string>() : configuredFolders(config.get());
}

SystemFontFiles readSystemFontFiles()
{
    SystemFontFiles files;
    const Handle<FcConfig, FcConfigDestroy> config(FcInitLoadConfig());
    if (config == nullptr)
        return files;
    FolderWalk walk;
    for (const std::string &folder : configuredFolders(config.get()))
        walk.enter(folder);
    files.folders = std::move(walk.folders);
    if (!walk.pipes.empty()) {
        files.pipes = std::move(walk.pipes);
        return files;
    }

    FcConfigBuildFonts(config.get());
    const FcFontSet *fonts = FcConfigGetFonts(config.get(), FcSetSystem);
    LinkResolver links;
    std::unordered_map<std::string, std::string> resolved;
    resolved.reserve(walk.fontFiles.size());
    for (int i = 0; fonts != nullptr && i < fonts->nfont; ++i) {
        FcChar8 *file = nullptr;
        int index = 0;
        if (FcPatternGetString(fonts->fonts[i], FC_FILE, 0, &file) != FcResultMatch ||
            FcPatternGetInteger(fonts->fonts[i], FC_INDEX, 0, &index) != FcResultMatch)
            continue;
        const std::string path(reinterpret_cast<const char *>(file));
        auto known = resolved.find(path);
        if (known == resolved.end())
            known = resolved.emplace(path, links.resolve(path)).first;
        files.offered[known->second].insert(static_cast<std::uint32_t>(index) & 0xFFFF); // the upper half: an instance
    }
    for (const std::string &path : walk.fontFiles) {
        if (resolved.contains(path))
            continue;
        if (std::string file = links.resolve(path); !files.offered.contains(file))
            files.refused.insert(std::move(file));
    }
    return files;
}

bool isUpToDate(const SystemFontFiles &files)
{
    return std::all_of(files.folders.begin(), files.folders.end(),
                       [](const auto &folder) { return changeTime(folder.first) == folder.second; });
}

} // namespace kerlune
