#pragma once

#include "Platform/Directories.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace kerlune {

// Finds font files that get in each other's way: one PostScript name in different files, equal files, several versions
// of one font. It reads the files themselves, not the index.
//
// Thread: any; scan() blocks for as long as reading all files takes, on all cores. Run it off the main thread.
// Errors: never fails. What cannot be read as a font is listed in Report::broken.
class DuplicateScanner final {
public:
    struct FileEntry {
        std::string path;                         // absolute, symbolic links resolved
        std::uint64_t size = 0;                   // bytes
        std::vector<std::string> postScriptNames; // of every face that has one, in the file's order
        std::string family;                       // of the first face; empty when it has none
        std::string style;                        // likewise
        std::optional<std::string> version;       // likewise: OpenType name ID 5

        bool operator==(const FileEntry &) const = default;
    };

    struct Group {
        enum class Kind { psNameConflict, identical, versionDrift };

        std::string id; // a UUID, another one for each group of each scan
        Kind kind;
        std::string key;                // what the files share: a PostScript name, a SHA-256 digest, a family and style
        std::vector<FileEntry> entries; // at least two; of versionDrift the newest first

        std::uint64_t reclaimable() const; // bytes that keeping only the first file would free
    };

    struct Report {
        std::vector<Group> groups;       // the most serious kind first; in a kind what frees most first, then by key
        std::vector<std::string> broken; // files without a face that can be read
        std::size_t scannedFiles = 0;

        std::vector<Group> groupsOf(Group::Kind kind) const; // what frees most first
        static std::uint64_t totalReclaimable(std::span<const Group> groups);
    };

    // Called with a French text for the status line, on the scanning threads but one call at a time. The numbers in it
    // only rise.
    using Progress = std::function<void(const std::string &status)>;

    // The folders where fonts are installed, as far as they exist.
    static std::vector<std::filesystem::path> searchPaths(const Directories &directories);

    // Looks through folders and everything below them, hidden files too, for files that have a font's name. A link to a
    // file stands for the file; links to folders are not followed below the given ones. A file that is given itself is
    // looked at whatever its name. Folders that are missing or may not be read are passed over.
    static Report scan(std::span<const std::filesystem::path> folders, const Progress &onProgress);

    // Absent when not one face can be read. After two seconds of processor time or 4 MiB of PostScript names, the rest
    // of a file is left out.
    static std::optional<FileEntry> read(const std::string &path);

    // Without those whose path came before.
    static std::vector<FileEntry> dedupe(std::vector<FileEntry> entries);
};

// For the user.
std::string label(DuplicateScanner::Group::Kind kind);
std::string explanation(DuplicateScanner::Group::Kind kind);
int severity(DuplicateScanner::Group::Kind kind); // 0…2, higher is more serious

} // namespace kerlune
