#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kerlune {

class CharacterMap;
class FontFace;

// The scripts, languages and typographic sets that a face is tested for, and which of them it covers, as the 64-bit
// mask of FontRecord::scriptMask: bit i stands for entry i of all().
//
// Thread: any.
namespace ScriptCoverage {

struct Language {
    const char *id;               // stable key
    const char *labelKey;         // the French label, untranslated
    std::u32string_view required; // every character that a face must have to count as covering the entry
    const char *group;            // "Latin", "Ecritures" or "Typographie"

    std::string label() const; // for display
};

const std::vector<Language> &all(); // 43 entries, in bit order

std::uint64_t mask(const FontFace &face);
std::uint64_t mask(const CharacterMap &characters);

// The bit of the entry with exactly this id.
std::optional<std::uint64_t> bit(std::string_view id);

std::vector<Language> languages(std::uint64_t mask); // the entries whose bits are set, in list order
std::vector<std::string> groups();                   // keys, in order of first appearance
std::string groupLabel(const std::string &group);    // for display; any other string comes back as it is

} // namespace ScriptCoverage

} // namespace kerlune
