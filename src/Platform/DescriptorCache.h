#pragma once

#include "Platform/FontCatalog.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <unordered_map>

namespace kerlune {

// What a font file held when it was last read, so that a start-up asks the system for its time and size only. The
// format stands in docs/descriptor-cache.md.
//
// Thread: one at a time, but for find(), which any number may call for different paths.
// Errors: none. A cache that is missing or damaged is empty, one that cannot be written is written the next time.
class DescriptorCache final {
public:
    // What tells whether a file is still the one that was read.
    struct Stamp {
        std::int64_t modificationTime = 0; // nanoseconds since 1970-01-01 UTC
        std::uint64_t size = 0;            // bytes

        bool operator==(const Stamp &) const = default;
    };

    explicit DescriptorCache(std::filesystem::path file);

    const FontCatalog::Listing *find(const std::string &path, const Stamp &stamp);
    void insert(const std::string &path, const Stamp &stamp, FontCatalog::Listing listing);

    // Moves a face of a known file from its fonts to what was skipped.
    void leaveOut(const FontDescriptor &font, FontError reason);

    // Writes the cache if it changed. Entries that were not asked for are kept until they outnumber the others.
    void save();

private:
    struct Entry {
        Stamp stamp;
        FontCatalog::Listing listing;
        bool isUsed = false;
    };

    void load();
    void dropUnusedEntries();

    std::filesystem::path m_file;
    std::unordered_map<std::string, Entry> m_entries;
    bool m_isChanged = false;
};

} // namespace kerlune
