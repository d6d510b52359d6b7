#pragma once

#include <tl/expected.hpp>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace kerlune {

// Why a font file, or one face of it, is not read.
enum class FontError {
    NotFound,
    PermissionDenied,
    NotAFile,      // a folder, a device, a pipe
    Unreadable,    // the system reports another error
    NotUtf8Path,   // the path is not valid text and could not be stored
    UnknownFormat, // neither SFNT nor a container of SFNT
    Damaged,       // the directory or the tables that every face needs are broken
    TooLarge,      // compressed font with more than 30 MiB inside
    NoSuchFace,
    NoPostScriptName,
    HiddenName,      // the PostScript name begins with "."
    NoUnitsPerEm,    // OpenType head.unitsPerEm is 0
    TooCostly,       // reading it took longer than a face may
    RefusedBySystem, // readable, but the system does not offer it
    BlocksReaders,   // a pipe in a font folder: the system's own scan would wait for a writer
    NameTooLong,     // the path is longer than the system takes
};

// What the error means, for the user.
std::string describe(FontError error);

// One font file, open for reading. Bytes are fetched with pread when they are asked for; the file is never mapped, so
// that a program that truncates it meanwhile makes a read fail and does no other harm.
//
// Containers: a single SFNT, a collection (OpenType "TTC Header"), WOFF 1 and 2, and the Mac's data-fork suitcase.
// Thread: any; the file may be shared.
class FontFile final {
public:
    enum class Container { Sfnt, Collection, Woff, Suitcase };

    struct Status {
        std::uint64_t size = 0;      // bytes
        double modificationTime = 0; // seconds since 1970-01-01 UTC

        bool operator==(const Status &) const = default;
    };

    static tl::expected<std::shared_ptr<const FontFile>, FontError> open(std::string path);
    static std::optional<Status> status(const std::string &path); // without opening it; absent when it is no file

    ~FontFile();
    FontFile(const FontFile &) = delete;
    FontFile &operator=(const FontFile &) = delete;

    const std::string &path() const { return m_path; }
    std::uint64_t size() const { return m_status.size; }
    double modificationTime() const { return m_status.modificationTime; }
    Container container() const { return m_container; }
    std::uint32_t faceCount() const { return m_faceCount; } // 0 where only FreeType can tell: WOFF, suitcase

    // Offset of the table directory of a face; Sfnt and Collection only. 0 ≤ faceIndex < faceCount().
    std::uint32_t directoryOffset(std::uint32_t faceIndex) const;

    // Fills `buffer` from `offset` on; false when not all of it could be read.
    bool read(std::uint64_t offset, std::span<std::uint8_t> buffer) const;

private:
    FontFile(std::string path, int descriptor);
    tl::expected<void, FontError> recogniseContainer();
    tl::expected<void, FontError> readCollectionHeader();

    std::string m_path;
    int m_descriptor;
    Status m_status;
    Container m_container = Container::Sfnt;
    std::uint32_t m_faceCount = 1;
    std::vector<std::uint32_t> m_directoryOffsets;
    std::vector<std::uint8_t> m_head; // the first bytes of the file: most table directories lie here
};

} // namespace kerlune
