#pragma once

#include "Platform/CharacterMap.h"

#include <atomic>
#include <span>
#include <string_view>
#include <vector>

namespace kerlune {

// The characters that a search means, the best matches first, else in their order; all of them for an empty one. The
// search is
//   - the characters themselves: "é" or "→←",
//   - a code point in hexadecimal: "U+2192", "0x2192", "2192",
//   - or words with which words of the character's name in Unicode begin: "arrow right". Names in which all stand as
//     they are come before those in which one only begins so: "letter a" before "letter ae".
// A text that can be read in several ways finds what each of them means. `stop` ends it early; the answer then lacks
// some.
//
// Thread: any. A search for words takes some hundredths of a second for 65,000 characters.
std::vector<CharacterMap::Entry> searchCharacters(std::span<const CharacterMap::Entry> characters,
                                                  std::string_view query, const std::atomic<bool> &stop);

} // namespace kerlune
