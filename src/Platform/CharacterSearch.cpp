#include "Platform/CharacterSearch.h"

#include "Platform/FaceContents.h"
#include "Support/Text.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>

namespace kerlune {

namespace {

// What the search may mean.
struct Meaning {
    std::u32string characters = {};
    std::optional<char32_t> codePoint = {};
    std::vector<std::string> words = {}; // in capitals
};

std::optional<char32_t> codePointIn(std::string_view text)
{
    const bool hasPrefix = text.starts_with("U+") || text.starts_with("u+") || text.starts_with("0x");
    const std::string_view digits = hasPrefix ? text.substr(2) : text;
    if (digits.size() > 6 || digits.size() < (hasPrefix ? 1U : 4U))
        return std::nullopt;
    std::uint32_t code = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), code, 16);
    return error == std::errc() && end == digits.data() + digits.size() ? std::optional<char32_t>(code) : std::nullopt;
}

std::vector<std::string> capitalWords(std::string_view text)
{
    std::vector<std::string> words(1);
    for (const char c : text) {
        if (c == ' ') {
            if (!words.back().empty())
                words.emplace_back();
        } else {
            words.back() += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
        }
    }
    std::erase(words, std::string());
    return words;
}

Meaning meaningOf(std::string_view query)
{
    const bool isAscii =
        std::all_of(query.begin(), query.end(), [](char c) { return static_cast<signed char>(c) >= 0; });
    Meaning meaning;
    if (const std::u32string distinct = distinctCharacters(query); !isAscii || distinct.size() == 1) {
        meaning.characters = distinct;
        return meaning;
    }
    meaning.codePoint = codePointIn(query);
    meaning.words = capitalWords(query);
    return meaning;
}

bool isMeant(char32_t character, const Meaning &meaning)
{
    if (meaning.characters.find(character) != std::u32string::npos || meaning.codePoint == character)
        return true;
    if (meaning.words.empty())
        return false;
    const std::string name = characterName(character);
    return std::all_of(meaning.words.begin(), meaning.words.end(),
                       [&name](const std::string &word) { return name.find(word) != std::string::npos; });
}

} // namespace

std::vector<CharacterMap::Entry> searchCharacters(std::span<const CharacterMap::Entry> characters,
                                                  std::string_view query, const std::atomic<bool> &stop)
{
    // A single space is a character too.
    const std::string text = query == " " ? std::string(query) : trimmed(query);
    std::vector<CharacterMap::Entry> found;
    if (text.empty())
        return {characters.begin(), characters.end()};
    const Meaning meaning = meaningOf(text);
    for (const CharacterMap::Entry &entry : characters) {
        if (stop)
            break;
        if (isMeant(entry.character, meaning))
            found.push_back(entry);
    }
    return found;
}

} // namespace kerlune
