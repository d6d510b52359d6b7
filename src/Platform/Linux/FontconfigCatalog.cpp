#include "Platform/Linux/FontconfigCatalog.h"

#include "Platform/DescriptorCache.h"
#include "Platform/Linux/LinkResolver.h"
#include "Platform/Linux/ProcessFonts.h"
#include "Platform/Linux/SystemFontFiles.h"
#include "Support/ParallelFor.h"

#include <sys/stat.h>

#include <algorithm>
#include <mutex>
#include <optional>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace kerlune {

namespace {

// A file to list. Without face indices all of its faces are wanted.
struct WantedFile {
    std::string path; // resolved
    std::set<std::uint32_t> faces = {};
    bool isOffered = true; // false for a file that fontconfig left out: only why is of interest
    bool isPipe = false;   // never opened
    bool isKnown = false;  // from the cache, or without reading it
    std::optional<DescriptorCache::Stamp> stamp = {}; // absent when the file is gone
    FontCatalog::Listing listing = {};
};

std::optional<DescriptorCache::Stamp> readStamp(const std::string &path)
{
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0)
        return std::nullopt;
    return DescriptorCache::Stamp{std::int64_t{status.st_mtim.tv_sec} * 1'000'000'000 + status.st_mtim.tv_nsec,
                                  static_cast<std::uint64_t>(status.st_size)};
}

// False when the file must be read.
bool fillFromCache(WantedFile &file, DescriptorCache &cache)
{
    if (file.isPipe) {
        file.listing.skipped.push_back({file.path, FontError::BlocksReaders});
        return true;
    }
    file.stamp = readStamp(file.path);
    const FontCatalog::Listing *listing = file.stamp ? cache.find(file.path, *file.stamp) : nullptr;
    if (listing != nullptr)
        file.listing = *listing;
    return listing != nullptr;
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
    void readAhead();
    std::vector<WantedFile> wantedFiles();
    void fill(std::vector<WantedFile> &files);
    DescriptorCache &loadedCache();

    std::shared_ptr<const ProcessFonts> processFonts;
    std::filesystem::path cacheFile;
    std::mutex mutex; // guards what follows
    std::optional<DescriptorCache> cache;
    std::optional<SystemFontFiles> systemFiles; // read ahead
};

FontconfigCatalog::FontconfigCatalog(std::shared_ptr<const ProcessFonts> processFonts, std::filesystem::path cacheFile)
    : m_implementation(std::make_unique<Implementation>())
{
    m_implementation->processFonts = std::move(processFonts);
    m_implementation->cacheFile = std::move(cacheFile);
}

FontconfigCatalog::~FontconfigCatalog() = default;

void FontconfigCatalog::leaveOut(std::span<const FontDescriptor> fonts, FontError reason) const
{
    const std::lock_guard lock(m_implementation->mutex);
    DescriptorCache &cache = m_implementation->loadedCache();
    for (const FontDescriptor &font : fonts)
        cache.leaveOut(font, reason);
    cache.save();
}

void FontconfigCatalog::readAhead() const
{
    const std::lock_guard lock(m_implementation->mutex);
    m_implementation->readAhead();
}

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

void FontconfigCatalog::Implementation::readAhead()
{
    systemFiles = readSystemFontFiles();
    loadedCache();
}

std::vector<WantedFile> FontconfigCatalog::Implementation::wantedFiles()
{
    std::vector<WantedFile> files;
    std::unordered_set<std::string> known;
    const auto want = [&](WantedFile file) {
        if (known.insert(file.path).second)
            files.push_back(std::move(file));
    };
    LinkResolver links;
    for (const std::string &path : processFonts->paths())
        want({.path = links.resolve(path)});
    if (!systemFiles || !isUpToDate(*systemFiles))
        systemFiles = readSystemFontFiles();
    SystemFontFiles system = *std::exchange(systemFiles, std::nullopt);
    files.reserve(files.size() + system.offered.size());
    known.reserve(files.size() + system.offered.size());
    for (auto &[path, faces] : system.offered)
        want({.path = path, .faces = std::move(faces)});
    for (const std::string &path : system.refused)
        want({.path = path, .isOffered = false});
    for (const std::string &path : system.pipes)
        want({.path = path, .isOffered = false, .isPipe = true});
    return files;
}

void FontconfigCatalog::Implementation::fill(std::vector<WantedFile> &files)
{
    DescriptorCache &known = loadedCache();
    parallelForRanges(files.size(), [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i != last; ++i)
            files[i].isKnown = fillFromCache(files[i], known);
    });
    std::vector<WantedFile *> unknown;
    for (WantedFile &file : files) {
        if (!file.isKnown)
            unknown.push_back(&file);
    }
    parallelForRanges(unknown.size(), [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i != last; ++i)
            unknown[i]->listing = fontsOfFile(unknown[i]->path);
    });
    for (const WantedFile *file : unknown) {
        if (file->stamp && isWorthCaching(file->listing))
            known.insert(file->path, *file->stamp, file->listing);
    }
    known.save();
}

DescriptorCache &FontconfigCatalog::Implementation::loadedCache()
{
    return cache ? *cache : cache.emplace(cacheFile);
}

} // namespace kerlune
