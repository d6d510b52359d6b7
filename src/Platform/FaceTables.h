#pragma once

#include "Platform/FontFile.h"
#include "Platform/Tag.h"

#include <memory>
#include <vector>

namespace kerlune {

class FreeTypeFace;

// The tables of one face, read when they are asked for. Tables that do not lie inside the file as a whole count as
// missing. WOFF and suitcases are opened through FreeType.
//
// Thread: one at a time.
class FaceTables final {
public:
    static constexpr std::size_t kMostBytes = 64U << 20; // a longer table counts as missing

    static tl::expected<FaceTables, FontError> open(std::shared_ptr<const FontFile> file, std::uint32_t faceIndex);
    // How many faces the file holds.
    static tl::expected<std::uint32_t, FontError> faceCount(const std::shared_ptr<const FontFile> &file);

    ~FaceTables();
    FaceTables(FaceTables &&) noexcept;
    FaceTables &operator=(FaceTables &&) noexcept;

    bool has(Tag tag) const { return length(tag) > 0; }
    std::size_t length(Tag tag) const; // bytes, 0 when the face has no such table

    // The first bytes of a table, at most `limit`; empty when there is none or it cannot be read.
    std::vector<std::uint8_t> read(Tag tag, std::size_t limit = kMostBytes) const;
    // Bytes from the middle of a table; empty unless all of them lie inside it.
    std::vector<std::uint8_t> readRange(Tag tag, std::size_t offset, std::size_t length) const;

private:
    struct Entry {
        Tag tag;
        std::uint32_t offset; // from the start of the file
        std::uint32_t length;
    };

    explicit FaceTables(std::shared_ptr<const FontFile> file);
    tl::expected<void, FontError> readDirectory(std::uint32_t faceIndex);
    const Entry *entry(Tag tag) const;

    std::shared_ptr<const FontFile> m_file;
    std::vector<Entry> m_entries;
    std::unique_ptr<FreeTypeFace> m_unwrapped; // for WOFF and suitcases
};

} // namespace kerlune
