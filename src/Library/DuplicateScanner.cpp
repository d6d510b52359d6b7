#include "Library/DuplicateScanner.h"

#include "Library/DuplicateGroups.h"
#include "Platform/ContentDigest.h"
#include "Platform/FontFace.h"
#include "Platform/FontFileNames.h"
#include "Support/CpuStopwatch.h"
#include "Support/Localization.h"
#include "Support/ParallelFor.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <memory>
#include <mutex>
#include <system_error>
#include <unordered_set>
#include <utility>

namespace kerlune {

namespace {

namespace fs = std::filesystem;
using FileEntry = DuplicateScanner::FileEntry;
using Progress = DuplicateScanner::Progress;

constexpr std::size_t kChunk = 1'048'576;        // bytes read at once for a digest
constexpr std::size_t kMostNameBytes = 4U << 20; // of all PostScript names of a file

// Tells how many of a known number are done, whichever thread does them.
class Counter final {
public:
    Counter(const char *french, std::size_t total, const Progress &onProgress)
        : m_french(french)
        , m_total(std::to_string(total))
        , m_onProgress(onProgress)
    {}

    void countOne()
    {
        const std::lock_guard turn(m_mutex);
        m_onProgress(localized(m_french, {std::to_string(++m_done), m_total}));
    }

private:
    const char *m_french;
    std::string m_total;
    const Progress &m_onProgress;
    std::mutex m_mutex;
    std::size_t m_done = 0;
};

FileEntry unread(const fs::path &path)
{
    FileEntry entry;
    entry.path = path.native();
    return entry;
}

// What a path means once its links are resolved; the path itself where it leads nowhere.
fs::path resolved(const fs::path &path)
{
    std::error_code error;
    fs::path real = fs::canonical(path, error);
    return error ? path : real;
}

// Collects the files of one folder that have a font's name, and adds its subfolders to those still to be looked at.
void lookInto(const fs::path &folder, std::vector<fs::path> &found, std::vector<fs::path> &folders)
{
    std::error_code error; // what cannot be looked at is passed over
    for (fs::directory_iterator item(folder, error), end; !error && item != end; item.increment(error)) {
        std::error_code unknown;
        const bool isLink = item->is_symlink(unknown);
        if (item->is_directory(unknown)) {
            if (!isLink)
                folders.push_back(item->path());
        } else if (hasFontName(item->path().native())) {
            found.push_back(isLink ? resolved(item->path()) : item->path());
        }
    }
}

// The files with a font's name in a folder and below, by path; a file alone when the path is one. Only one folder is
// open at a time, however deep they lie.
std::vector<fs::path> fontFilesIn(const fs::path &place)
{
    std::error_code error;
    const fs::path root = fs::canonical(place, error);
    if (error)
        return {};
    if (!fs::is_directory(root, error))
        return {root};
    std::vector<fs::path> found;
    for (std::vector<fs::path> folders{root}; !folders.empty();) {
        const fs::path folder = std::move(folders.back());
        folders.pop_back();
        lookInto(folder, found, folders);
    }
    std::sort(found.begin(), found.end(), [](const fs::path &a, const fs::path &b) { return a.native() < b.native(); });
    return found;
}

std::vector<FileEntry> inventory(std::span<const fs::path> folders)
{
    std::vector<FileEntry> files;
    for (const fs::path &folder : folders)
        std::ranges::transform(fontFilesIn(folder), std::back_inserter(files), unread);
    return DuplicateScanner::dedupe(std::move(files));
}

// Adds the PostScript names of a face and of its other instances; returns how many bytes they have.
std::size_t appendPostScriptNames(const FontFace &face, std::chrono::nanoseconds mostTime,
                                  std::vector<std::string> &names)
{
    const auto append = [&](std::string name) {
        names.push_back(std::move(name));
        return names.back().size();
    };
    auto name = face.postScriptName();
    if (!name)
        return 0;
    std::size_t bytes = append(*std::move(name));
    for (NamedInstance &instance : face.otherInstances(mostTime))
        bytes += append(std::move(instance.postScriptName));
    return bytes;
}

// Reads the files of which only the path is known. Those that are no fonts go to `broken`.
std::vector<FileEntry> readAll(const std::vector<FileEntry> &files, const Progress &onProgress,
                               std::vector<std::string> &broken)
{
    std::vector<std::optional<FileEntry>> read(files.size());
    Counter counter(marked("Lecture %1 / %2"), files.size(), onProgress);
    parallelForRanges(files.size(), [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i < last; ++i) {
            read[i] = DuplicateScanner::read(files[i].path);
            counter.countOne();
        }
    });

    std::vector<FileEntry> entries;
    for (std::size_t i = 0; i < files.size(); ++i) {
        if (read[i])
            entries.push_back(*std::move(read[i]));
        else
            broken.push_back(files[i].path);
    }
    return entries;
}

ContentDigests digestsOf(const std::vector<FileEntry> &entries, const Progress &onProgress)
{
    ContentDigests digests(entries.size());
    const std::vector<std::size_t> candidates = sharingTheirSize(entries);
    Counter counter(marked("Empreintes %1 / %2"), candidates.size(), onProgress);
    parallelForRanges(candidates.size(), [&](std::size_t first, std::size_t last) {
        const auto buffer = std::make_unique_for_overwrite<std::uint8_t[]>(kChunk);
        for (std::size_t i = first; i < last; ++i) {
            const FileEntry &entry = entries[candidates[i]];
            digests[candidates[i]] = contentDigest(entry.path, entry.size, {buffer.get(), kChunk});
            counter.countOne();
        }
    });
    return digests;
}

} // namespace

std::vector<fs::path> DuplicateScanner::searchPaths(const Directories &directories)
{
    std::vector<fs::path> folders{userFontsFolder(directories), sharedFontsFolder(), managedLibrary(directories),
                                  googleFontsFolder(directories)};
    std::erase_if(folders, [](const fs::path &folder) {
        std::error_code error;
        return !fs::is_directory(folder, error);
    });
    return folders;
}

DuplicateScanner::Report DuplicateScanner::scan(std::span<const fs::path> folders, const Progress &onProgress)
{
    const Progress tell = onProgress ? onProgress : [](const std::string &) {};
    Report report;
    tell(localized("Inventaire des fichiers…"));
    const std::vector<FileEntry> files = inventory(folders);
    report.scannedFiles = files.size();
    const std::vector<FileEntry> entries = readAll(files, tell, report.broken);

    tell(localized("Recherche des conflits de nom…"));
    const NameSharers sharers = sharingAName(entries);
    report.groups = versionDrifts(entries);

    tell(localized("Comparaison des fichiers…"));
    const ContentDigests digests = digestsOf(entries, tell);
    std::ranges::move(nameConflicts(entries, sharers, digests), std::back_inserter(report.groups));
    std::ranges::move(identicalFiles(entries, digests), std::back_inserter(report.groups));
    sortBySeverity(report.groups);
    return report;
}

std::optional<FileEntry> DuplicateScanner::read(const std::string &path)
{
    const CpuStopwatch stopwatch;
    const auto file = FontFile::open(path);
    const auto faceCount = file ? FaceTables::faceCount(*file) : tl::unexpected(file.error());
    if (!faceCount)
        return std::nullopt;
    std::optional<FileEntry> entry;
    std::size_t nameBytes = 0;
    for (std::uint32_t i = 0; i < *faceCount && nameBytes <= kMostNameBytes; ++i) {
        const auto timeLeft = FontFace::kMostTimeForFaces - stopwatch.elapsed();
        if (timeLeft.count() < 0)
            break;
        const auto face = FontFace::open(*file, i);
        if (!face)
            continue;
        if (!entry) {
            entry = FileEntry{path,
                              (*file)->size(),
                              {},
                              (*face)->familyName().value_or(""),
                              (*face)->styleName().value_or(""),
                              (*face)->name(NameId::Version)};
        }
        nameBytes += appendPostScriptNames(**face, timeLeft, entry->postScriptNames);
    }
    return entry;
}

std::vector<FileEntry> DuplicateScanner::dedupe(std::vector<FileEntry> entries)
{
    std::unordered_set<std::string> seen;
    std::erase_if(entries, [&](const FileEntry &entry) { return !seen.insert(entry.path).second; });
    return entries;
}

} // namespace kerlune
