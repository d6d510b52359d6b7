#include "Support/Text.h"

#include <unicode/coll.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <cstdlib>
#include <utility>
#include <vector>

namespace kerlune {

namespace {

icu::UnicodeString unicode(std::string_view text)
{
    return icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
}

bool isAscii(char c)
{
    return static_cast<unsigned char>(c) < 0x80;
}

bool isAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return isAscii(c); });
}

char lowercasedAscii(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

void appendFoldedUnicode(std::string &target, std::string_view text)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2 *decomposition = icu::Normalizer2::getNFDInstance(status);
    const icu::Normalizer2 *composition = icu::Normalizer2::getNFCInstance(status);
    if (U_FAILURE(status))
        std::abort(); // ICU without its own data: the installation is broken
    const icu::UnicodeString decomposed = decomposition->normalize(unicode(text), status);
    icu::UnicodeString bases;
    for (std::int32_t i = 0; i < decomposed.length(); i = decomposed.moveIndex32(i, 1)) {
        if (const UChar32 character = decomposed.char32At(i); u_charType(character) != U_NON_SPACING_MARK)
            bases.append(character);
    }
    composition->normalize(bases.foldCase(U_FOLD_CASE_DEFAULT), status).toUTF8String(target);
}

// Of the characters below this one, none composes with what follows, but for nonspacing marks, which fall away. So each
// can be folded by itself, and so can the rest between them.
constexpr char32_t kEndOfLatin = 0x250;

const std::string &foldedLatin(char32_t character)
{
    static const std::vector<std::string> all = [] {
        std::vector<std::string> texts(kEndOfLatin);
        for (char32_t i = 0; i < kEndOfLatin; ++i) {
            std::string text;
            appendFoldedUnicode(texts[i], icu::UnicodeString(static_cast<UChar32>(i)).toUTF8String(text));
        }
        return texts;
    }();
    return all[character];
}

// The character below kEndOfLatin at the beginning, and its bytes; none when there is another.
std::pair<char32_t, std::size_t> latinCharacter(std::string_view text)
{
    const auto first = static_cast<unsigned char>(text[0]);
    if (isAscii(text[0]))
        return {first, 1};
    const auto second = static_cast<unsigned char>(text.size() > 1 ? text[1] : 0);
    const char32_t character = (first & 0x1FU) << 6 | (second & 0x3FU);
    const bool isOne = first >= 0xC2 && first < 0xE0 && (second & 0xC0U) == 0x80 && character < kEndOfLatin;
    return isOne ? std::pair<char32_t, std::size_t>(character, 2) : std::pair<char32_t, std::size_t>(0, 0);
}

void appendFoldedInParts(std::string &target, std::string_view text)
{
    while (!text.empty()) {
        if (const auto [character, bytes] = latinCharacter(text); bytes > 0) {
            target += foldedLatin(character);
            text.remove_prefix(bytes);
            continue;
        }
        const auto *const end = std::find_if(text.begin(), text.end(), [](char c) { return isAscii(c); });
        appendFoldedUnicode(target, {text.begin(), end});
        text = {end, text.end()};
    }
}

std::string collationLocale()
{
    for (const char *variable : {"LC_ALL", "LC_COLLATE", "LANG"}) {
        const char *value = std::getenv(variable); // NOLINT(concurrency-mt-unsafe): nobody changes the environment
        if (value == nullptr || *value == '\0')
            continue;
        const std::string locale(value, std::string_view(value).find_first_of(".@") == std::string_view::npos
                                            ? std::string_view(value).size()
                                            : std::string_view(value).find_first_of(".@"));
        return locale == "C" || locale == "POSIX" ? "fr" : locale;
    }
    return "fr";
}

} // namespace

bool isValidUtf8(std::string_view text)
{
    if (isAscii(text))
        return true;
    UErrorCode status = U_ZERO_ERROR;
    std::int32_t length = 0;
    u_strFromUTF8(nullptr, 0, &length, text.data(), static_cast<std::int32_t>(text.size()), &status);
    return status == U_BUFFER_OVERFLOW_ERROR || status == U_ZERO_ERROR;
}

std::string validUtf8(std::string_view text)
{
    std::string valid;
    return isValidUtf8(text) ? std::string(text) : unicode(text).toUTF8String(valid);
}

std::string lowercased(std::string_view text)
{
    std::string lower;
    if (!isAscii(text))
        return unicode(text).toLower(icu::Locale::getRoot()).toUTF8String(lower);
    lower.resize(text.size());
    std::transform(text.begin(), text.end(), lower.begin(), lowercasedAscii);
    return lower;
}

bool equalIgnoringCase(std::string_view a, std::string_view b)
{
    return unicode(a).caseCompare(unicode(b), U_FOLD_CASE_DEFAULT) == 0;
}

std::string folded(std::string_view text)
{
    std::string result;
    appendFolded(result, text);
    return result;
}

void appendFolded(std::string &target, std::string_view text)
{
    const std::size_t length = target.size();
    target.resize(length + text.size());
    unsigned char bits = 0; // of all characters
    for (std::size_t i = 0; i < text.size(); ++i) {
        bits |= static_cast<unsigned char>(text[i]);
        target[length + i] = lowercasedAscii(text[i]);
    }
    if (isAscii(static_cast<char>(bits)))
        return;
    target.resize(length);
    appendFoldedInParts(target, text);
}

std::string trimmed(std::string_view text)
{
    const icu::UnicodeString all = unicode(text);
    std::int32_t first = 0;
    std::int32_t last = all.length(); // white space is never a surrogate
    while (first < last && u_isUWhiteSpace(all[first]))
        ++first;
    while (last > first && u_isUWhiteSpace(all[last - 1]))
        --last;
    std::string bytes;
    return all.tempSubStringBetween(first, last).toUTF8String(bytes);
}

std::u32string distinctCharacters(std::string_view text)
{
    const icu::UnicodeString all = unicode(text);
    std::u32string characters;
    for (std::int32_t i = 0; i < all.length(); i = all.moveIndex32(i, 1))
        characters += static_cast<char32_t>(all.char32At(i));
    std::sort(characters.begin(), characters.end());
    characters.erase(std::unique(characters.begin(), characters.end()), characters.end());
    return characters;
}

struct NameCollator::Implementation {
    std::unique_ptr<icu::Collator> collator;
};

NameCollator::NameCollator(const std::string &locale)
    : m_implementation(std::make_unique<Implementation>())
{
    UErrorCode status = U_ZERO_ERROR;
    const std::string wanted = locale.empty() ? collationLocale() : locale;
    // ICU has an answer to every locale but one that is no name at all.
    for (const char *name : {wanted.c_str(), "fr"}) {
        status = U_ZERO_ERROR;
        m_implementation->collator.reset(icu::Collator::createInstance(icu::Locale(name), status));
        if (m_implementation->collator != nullptr)
            break;
    }
    if (m_implementation->collator == nullptr)
        std::abort(); // ICU without its own data: the installation is broken
    m_implementation->collator->setStrength(icu::Collator::SECONDARY);
    m_implementation->collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
}

NameCollator::~NameCollator() = default;
NameCollator::NameCollator(NameCollator &&) noexcept = default;
NameCollator &NameCollator::operator=(NameCollator &&) noexcept = default;

std::string NameCollator::sortKey(std::string_view name) const
{
    const icu::UnicodeString text = unicode(name);
    std::string key(std::max<std::size_t>(64, name.size() * 2), '\0');
    for (;;) {
        const std::int32_t needed = m_implementation->collator->getSortKey(
            text, reinterpret_cast<std::uint8_t *>(key.data()), static_cast<std::int32_t>(key.size()));
        const bool fitted = static_cast<std::size_t>(needed) <= key.size();
        key.resize(static_cast<std::size_t>(std::max(needed, 0)));
        if (fitted)
            return key;
    }
}

} // namespace kerlune
