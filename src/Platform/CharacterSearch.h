#pragma once

#include "Platform/CharacterMap.h"

#include <atomic>
#include <span>
#include <string_view>
#include <vector>

namespace kerlune {

// The characters that a search means, in their order; all of them for an empty one. The search is
//   - the characters themselves: "é" or "→←",
//   - a code point in hexadecimal: "U+2192", "0x2192", "2192",
//   - or words that are all in the character's name in Unicode: "arrow right".
// A text that can be read in several ways finds what each of them means. `stop` ends it early; the answer then lacks
// some.
//
// Thread: any. A search for words takes some hundredths of a second for 65,000 characters.
std::vector<CharacterMap::Entry> searchCharacters(std::span<const CharacterMap::Entry> characters,
                                                  std::string_view query, const std::atomic<bool> &stop);

} // namespace kerlune
