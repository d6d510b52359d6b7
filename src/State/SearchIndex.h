#pragma once

#include "Model/FontFamily.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kerlune {

// The texts that families are found by. The haystack of a family is its name, then for each of its faces a space and
// the PostScript name, and where the face has them a space and the foundry, a space and the designer; all folded for
// searching (folded()). A needle is folded text too; it is found where its bytes occur in a haystack in one run.
//
// Thread: any, once it is made.
class SearchIndex final {
public:
    SearchIndex() = default;
    explicit SearchIndex(std::span<const FontFamilyPointer> families); // in library order; blocks, on all cores

    bool matches(std::string_view familyName, std::string_view needle) const; // false for a family it does not know

    // The positions of all families that match, in library order. An empty needle matches all. For every keystroke:
    // well below a millisecond for 10,000 families with 5 faces each.
    std::vector<std::size_t> positions(std::string_view needle) const;

private:
    std::size_t familyCount() const { return m_families.size(); }
    std::string_view haystack(std::size_t position) const;

    std::vector<FontFamilyPointer> m_families; // keeps the names that m_positions looks at
    std::unordered_map<std::string_view, std::size_t> m_positions;
    std::string m_text;                             // the haystacks, an end mark after each, then padding
    std::vector<std::size_t> m_starts{0};           // of each haystack in m_text, and where the padding begins
    std::array<std::uint32_t, 256> m_frequencies{}; // of the bytes, in a sample of m_text
};

} // namespace kerlune
