#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace kerlune {

bool isValidUtf8(std::string_view text);
std::string validUtf8(std::string_view text); // what is not UTF-8 becomes U+FFFD

// Unicode lower case, the same in every language (no Turkish dotless i).
std::string lowercased(std::string_view text);

// Equal but for case (Unicode simple case folding).
bool equalIgnoringCase(std::string_view a, std::string_view b);

// Folded for searching: neither case nor diacritics count, the same in every language. Texts that are equal but for
// these fold to the same bytes: "É", "E" with a combining acute, and "e" to "e", "ß" to "ss". Diacritics are the
// nonspacing marks (General_Category Mn) of the canonical decomposition. In Arabic, Hebrew or Devanagari these are
// vowels too; as they fall away in both texts, that only finds more. A letter without a decomposition, such as "ø",
// stays itself. What is not UTF-8 becomes U+FFFD.
//
// ASCII characters fold by themselves: texts joined by a space fold to their folded texts joined by a space.
//
// Thread: any.
std::string folded(std::string_view text);
void appendFolded(std::string &target, std::string_view text);

std::string trimmed(std::string_view text); // without the white space around it (Unicode White_Space)

// The characters of a text, each once, in the order of their code points. What is not UTF-8 counts as U+FFFD.
std::u32string distinctCharacters(std::string_view text);

// Orders names as a file browser does: case does not count, digit runs compare as numbers ("Font 9" before "Font 10").
//
// Thread: one at a time.
class NameCollator final {
public:
    // `locale` as in "fr_FR"; empty takes the language of the environment (LC_ALL, LC_COLLATE, LANG), French where
    // that names none.
    explicit NameCollator(const std::string &locale = {});
    ~NameCollator();
    NameCollator(NameCollator &&) noexcept;
    NameCollator &operator=(NameCollator &&) noexcept;

    // Bytes that compare (as unsigned bytes) as the names do.
    std::string sortKey(std::string_view name) const;

private:
    struct Implementation;
    std::unique_ptr<Implementation> m_implementation;
};

} // namespace kerlune
