#include "Platform/CharacterSearch.h"

#include "Platform/FaceContents.h"
#include "Support/Text.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <charconv>
#include <functional>
#include <map>
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

enum class Match { None, Beginnings, Words, Exact };

Match match(std::string_view name, std::string_view word)
{
    Match best = Match::None;
    for (std::size_t at = name.find(word); at != std::string_view::npos; at = name.find(word, at + 1)) {
        if (at != 0 && name[at - 1] != ' ' && name[at - 1] != '-')
            continue;
        const std::size_t end = at + word.size();
        if (end == name.size() || name[end] == ' ' || name[end] == '-')
            return Match::Words;
        best = Match::Beginnings;
    }
    return best;
}

Match match(char32_t character, const Meaning &meaning)
{
    if (meaning.characters.find(character) != std::u32string::npos || meaning.codePoint == character)
        return Match::Exact;
    if (meaning.words.empty())
        return Match::None;
    const std::string name = characterName(character);
    Match least = Match::Words;
    for (const std::string &word : meaning.words)
        least = std::min(least, match(name, word));
    return least;
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
    std::map<Match, std::vector<CharacterMap::Entry>, std::greater<>> matches;
    for (const CharacterMap::Entry &entry : characters) {
        if (stop)
            break;
        if (const Match how = match(entry.character, meaning); how != Match::None)
            matches[how].push_back(entry);
    }
    for (const auto &[how, entries] : matches)
        found.insert(found.end(), entries.begin(), entries.end());
    return found;
}

} // namespace kerlune
