#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace kerlune {

class CharacterMap;

// Short texts that show what a script looks like.
//
// Thread: any.
namespace PreviewSample {

// For an entry of ScriptCoverage::all().
const char *ofEntry(std::size_t index);

// In a script that the face covers: Latin before the other scripts before typographic sets; of a face that covers none
// of them, some characters that it has. Empty when it has none.
std::string forFace(std::uint64_t scriptMask, const CharacterMap &characters);

} // namespace PreviewSample

} // namespace kerlune
