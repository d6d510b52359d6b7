#include "Platform/Linux/FontconfigCatalog.h"

#include "Platform/DescriptorCache.h"
#include "Platform/Linux/ProcessFonts.h"
#include "Support/Handle.h"
#include "Support/ParallelFor.h"
#include "Support/Text.h"

#include <fontconfig/fontconfig.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace kerlune {

namespace {

// A file to list. Without face indices all of its faces are wanted.
struct WantedFile {
    std::string path; // resolved
    std::set<std::uint32_t> faces = {};
    bool isOffered = true; // false for a file that fontconfig left out: only why is of interest
    std::optional<DescriptorCache::Stamp> stamp = {}; // absent when the file is gone
    FontCatalog::Listing listing = {};
};

// Resolves symbolic links; each folder once, as most files of a folder are none.
class LinkResolver final {
public:
    std::string resolve(const std::string &path)
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

private:
    static std::string realPath(const std::string &path)
    {
        const Handle<char, std::free> real(realpath(path.c_str(), nullptr));
        return real == nullptr ? path : std::string(real.get());
    }

    std::unordered_map<std::string, std::string> m_folders;
};

std::optional<DescriptorCache::Stamp> readStamp(const std::string &path)
{
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0)
        return std::nullopt;
    return DescriptorCache::Stamp{std::int64_t{status.st_mtim.tv_sec} * 1'000'000'000 + status.st_mtim.tv_nsec,
                                  static_cast<std::uint64_t>(status.st_size)};
}

struct SystemFiles {
    std::map<std::string, std::set<std::uint32_t>>
        offered;                   // by resolved path, the faces that fontconfig's rules let through
    std::set<std::string> refused; // resolved
};

bool hasFontExtension(const std::filesystem::path &path)
{
    static const std::set<std::string> kExtensions{".otf", ".ttf", ".ttc", ".otc", ".dfont", ".woff", ".woff2"};
    return kExtensions.contains(lowercased(path.extension().string()));
}

// Font files of a folder that are not among `offered`. Subfolders are folders of fontconfig's own.
std::vector<std::string> refusedFiles(const char *folder,
                                      const std::map<std::string, std::string, std::less<>> &offered)
{
    std::vector<std::string> refused;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string &path = entry->path().native();
        if (hasFontExtension(path) && entry->path().filename().native().front() != '.' && !offered.contains(path))
            refused.push_back(path);
    }
    return refused;
}

SystemFiles readSystemFiles()
{
    SystemFiles files;
    const Handle<FcConfig, FcConfigDestroy> config(FcInitLoadConfigAndFonts());
    if (config == nullptr)
        return files;
    const FcFontSet *fonts = FcConfigGetFonts(config.get(), FcSetSystem);
    LinkResolver links;
    std::map<std::string, std::string, std::less<>> resolvedPaths;
    for (int i = 0; fonts != nullptr && i < fonts->nfont; ++i) {
        FcChar8 *file = nullptr;
        int index = 0;
        if (FcPatternGetString(fonts->fonts[i], FC_FILE, 0, &file) != FcResultMatch ||
            FcPatternGetInteger(fonts->fonts[i], FC_INDEX, 0, &index) != FcResultMatch)
            continue;
        const std::string_view path(reinterpret_cast<const char *>(file));
        auto known = resolvedPaths.find(path);
        if (known == resolvedPaths.end())
            known = resolvedPaths.emplace(path, links.resolve(std::string(path))).first;
        files.offered[known->second].insert(static_cast<std::uint32_t>(index) & 0xFFFF); // the upper half: an instance
    }

    const Handle<FcStrList, FcStrListDone> folders(FcConfigGetFontDirs(config.get()));
    for (const FcChar8 *folder = nullptr; folders != nullptr && (folder = FcStrListNext(folders.get())) != nullptr;) {
        for (const std::string &path : refusedFiles(reinterpret_cast<const char *>(folder), resolvedPaths)) {
            if (std::string file = links.resolve(path); !files.offered.contains(file))
                files.refused.insert(std::move(file));
        }
    }
    return files;
}

// What may pass on its own (a lock, a permission, a failing disk) is asked again the next time.
bool isWorthCaching(const FontCatalog::Listing &listing)
{
    return std::none_of(listing.skipped.begin(), listing.skipped.end(), [](const SkippedFont &skipped) {
        return skipped.reason == FontError::NotFound || skipped.reason == FontError::PermissionDenied ||
               skipped.reason == FontError::Unreadable;
    });
}

void append(FontCatalog::Listing &all, WantedFile &&file)
{
    if (!file.isOffered && !file.listing.fonts.empty())
        all.skipped.push_back({file.path, FontError::RefusedBySystem});
    for (FontDescriptor &font : file.listing.fonts) {
        if (file.isOffered && (file.faces.empty() || file.faces.contains(font.faceIndex)))
            all.fonts.push_back(std::move(font));
    }
    std::move(file.listing.skipped.begin(), file.listing.skipped.end(), std::back_inserter(all.skipped));
}

void removeDuplicates(std::vector<FontDescriptor> &fonts)
{
    std::unordered_set<std::string_view> seen;
    std::vector<FontDescriptor> kept;
    kept.reserve(fonts.size());
    seen.reserve(fonts.size());
    for (FontDescriptor &font : fonts) {
        if (seen.contains(font.postScriptName))
            continue;
        kept.push_back(std::move(font));
        seen.insert(kept.back().postScriptName); // `kept` never moves its elements: its room is reserved
    }
    fonts = std::move(kept);
}

} // namespace

struct FontconfigCatalog::Implementation {
    std::vector<WantedFile> wantedFiles() const;
    void fill(std::vector<WantedFile> &files);

    std::shared_ptr<const ProcessFonts> processFonts;
    std::filesystem::path cacheFile;
    std::mutex mutex; // guards the cache
    std::optional<DescriptorCache> cache;
};

FontconfigCatalog::FontconfigCatalog(std::shared_ptr<const ProcessFonts> processFonts, std::filesystem::path cacheFile)
    : m_implementation(std::make_unique<Implementation>())
{
    m_implementation->processFonts = std::move(processFonts);
    m_implementation->cacheFile = std::move(cacheFile);
}

FontconfigCatalog::~FontconfigCatalog() = default;

FontCatalog::Listing FontconfigCatalog::availableFonts(Duplicates duplicates) const
{
    const std::lock_guard lock(m_implementation->mutex);
    std::vector<WantedFile> files = m_implementation->wantedFiles();
    m_implementation->fill(files);

    Listing all;
    for (WantedFile &file : files)
        append(all, std::move(file));
    if (duplicates == Duplicates::Remove)
        removeDuplicates(all.fonts);
    return all;
}

std::vector<WantedFile> FontconfigCatalog::Implementation::wantedFiles() const
{
    std::vector<WantedFile> files;
    std::unordered_set<std::string> known;
    LinkResolver links;
    for (const std::string &path : processFonts->paths()) {
        std::string file = links.resolve(path);
        if (known.insert(file).second)
            files.push_back({.path = std::move(file)});
    }
    SystemFiles system = readSystemFiles();
    for (auto &[path, faces] : system.offered) {
        if (!known.contains(path))
            files.push_back({.path = path, .faces = std::move(faces)});
    }
    for (const std::string &path : system.refused) {
        if (!known.contains(path))
            files.push_back({.path = path, .isOffered = false});
    }
    return files;
}

void FontconfigCatalog::Implementation::fill(std::vector<WantedFile> &files)
{
    if (!cache)
        cache.emplace(cacheFile);
    std::vector<WantedFile *> unknown;
    for (WantedFile &file : files) {
        file.stamp = readStamp(file.path);
        const FontCatalog::Listing *listing = file.stamp ? cache->find(file.path, *file.stamp) : nullptr;
        if (listing != nullptr)
            file.listing = *listing;
        else
            unknown.push_back(&file);
    }
    parallelForRanges(unknown.size(), [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i != last; ++i)
            unknown[i]->listing = fontsOfFile(unknown[i]->path);
    });
    for (const WantedFile *file : unknown) {
        if (file->stamp && isWorthCaching(file->listing))
            cache->insert(file->path, *file->stamp, file->listing);
    }
    cache->save();
}

} // namespace kerlune
