#pragma once

#include "Support/BigEndian.h"

#include <cstdint>
#include <vector>

namespace kerlune {

class FaceTables;

// Which characters a face has, and by which glyph (OpenType 'cmap').
//
// The fullest Unicode subtable is used: (3,10), (0,6), (0,4), (3,1), (0,3), (0,2), (0,1), (0,0), in formats 0, 4, 6,
// 10, 12 and 13. A symbol face (3,0) has no characters of Unicode. An old Macintosh face, which has neither, is read
// through Mac Roman. A character that is mapped to glyph 0 is missing.
//
// Thread: any.
class CharacterMap final {
public:
    static CharacterMap read(const FaceTables &tables);

    CharacterMap() = default; // without characters

    std::uint32_t glyph(char32_t character) const; // 0 when the face lacks it
    bool contains(char32_t character) const { return glyph(character) != 0; }

    struct Entry {
        char32_t character;
        std::uint32_t glyph; // never 0

        bool operator==(const Entry &) const = default;
    };

    std::vector<Entry> entries() const; // every character that the face has, in order

    std::size_t byteCount() const; // of memory, about

private:
    enum class Encoding { Unicode, MacRoman };

    CharacterMap(std::vector<std::uint8_t> subtable, Encoding encoding);

    std::uint32_t lookUp(std::uint32_t code) const;
    // The formats that map ranges: the segments of format 4, the groups of formats 12 and 13.
    std::uint32_t lookUpRanges(std::uint32_t code) const;
    std::size_t rangeInOrder(std::size_t position) const { return m_order.empty() ? position : m_order[position]; }
    std::uint32_t rangeStart(std::size_t range) const;
    std::uint32_t rangeEnd(std::size_t range) const;
    std::uint32_t glyphInRange(std::size_t range, std::uint32_t code) const;
    std::uint32_t glyphInSegment(std::size_t segment, std::uint32_t code) const;
    std::uint32_t glyphInGroup(std::size_t group, std::uint32_t code) const;
    void sortRanges();
    template <typename Visit>
    void visitCodes(Visit visit) const; // with (code, glyph), ascending
    template <typename Visit>
    void visitRanges(Visit visit) const;

    std::vector<std::uint8_t> m_subtable;
    Encoding m_encoding = Encoding::Unicode;
    std::uint16_t m_format = 0;
    std::size_t m_count = 0;            // ranges
    std::vector<std::uint32_t> m_order; // of the ranges by their ends, where the table has them in another order
};

} // namespace kerlune
