#include "UI/Preview/PreviewSample.h"

#include "Model/ScriptCoverage.h"
#include "Platform/CharacterMap.h"

#include <unicode/uchar.h>
#include <unicode/uscript.h>
#include <unicode/utf8.h>

#include <array>
#include <string_view>

namespace kerlune::PreviewSample {

namespace {

// In the order of ScriptCoverage::all(): what tells the language, a greeting or "all people", as long as a card is
// wide.
constexpr std::array<const char *, 43> kSamples{{
    "Kerlune",
    "Où dort l’été",
    "Schöne Grüße",
    "Mañana aquí",
    "Ação e coração",
    "Città e caffè",
    "Blåbærgrød",
    "Zażółć gęślą",
    "Žluťoučký kůň",
    "Árvíztűrő tükör",
    "Țară și câmpie",
    "Işık ve gölge",
    "Tiếng Việt",
    "Šventė ir žąsys",
    "Привет, мир",
    "Καλημέρα κόσμε",
    "كل الناس أحرار",
    "כל בני האדם",
    "सभी मनुष्य",
    "สวัสดีชาวโลก",
    "こんにちは世界",
    "하늘과 바다",
    "人人生而自由",
    "« “…” » — • †",
    "$ € £ ¥ ₽ ₹",
    "∑ √ ∂ ∫ ± ≠ ∞",
    "← ↑ → ↓ ↔ ⇒",
    "½ ⅓ ¼ ⅔ ¾ ⅛",
    "ﬁ ﬂ",
    "மனிதர் யாவரும்",
    "সকল মানুষ",
    "બધા મનુષ્યો",
    "మానవులందరూ",
    "ಎಲ್ಲ ಮಾನವರು",
    "മനുഷ്യരെല്ലാം",
    "ਸਾਰੇ ਮਨੁੱਖ",
    "සියලු මිනිසුන්",
    "Բոլոր մարդիկ",
    "ყველა ადამიანი",
    "ସମସ୍ତ ମଣିଷ",
    "လူတိုင်းသည်",
    "ມະນຸດທຸກຄົນ",
    "មនុស្សទាំងអស់",
}};

constexpr std::size_t kOwnCharacters = 8;
constexpr std::u32string_view kPictures = U"😀🎨🌙✨🐳🍋🎬🔥";

void append(std::string &text, char32_t character)
{
    std::array<char, U8_MAX_LENGTH> bytes{};
    std::size_t length = 0;
    U8_APPEND_UNSAFE(bytes.data(), length, static_cast<UChar32>(character));
    text.append(bytes.data(), length);
}

bool isShown(char32_t character)
{
    const auto code = static_cast<UChar32>(character);
    return u_isgraph(code) != 0 && (U_GET_GC_MASK(code) & (U_GC_M_MASK | U_GC_CF_MASK | U_GC_ZS_MASK)) == 0;
}

bool isLetter(char32_t character)
{
    return u_isalpha(static_cast<UChar32>(character)) != 0;
}

// Well-known pictures, else the first characters that the face has: letters, else signs and what stands in the private
// area.
std::string ownCharacters(const CharacterMap &characters)
{
    std::string letters;
    std::string others;
    std::size_t letterCount = 0;
    std::size_t otherCount = 0;
    for (const char32_t picture : kPictures) {
        if (characters.contains(picture)) {
            append(others, picture);
            ++otherCount;
        }
    }
    if (otherCount > kOwnCharacters / 2)
        return others;
    for (char32_t character = 0x21; character < 0x1FBFF && letterCount < kOwnCharacters; ++character) {
        if (character >= 0xD800 && character < 0xE000) // surrogates
            character = 0xE000;
        const bool isPrivate = character >= 0xE000 && character < 0xF900;
        if (!characters.contains(character) || (!isPrivate && !isShown(character)))
            continue;
        if (isLetter(character)) {
            append(letters, character);
            ++letterCount;
        } else if (otherCount < kOwnCharacters && character > 0xA0) {
            append(others, character);
            ++otherCount;
        }
    }
    return letterCount >= otherCount ? letters : others;
}

} // namespace

const char *ofEntry(std::size_t index)
{
    return kSamples.at(index);
}

std::string forFace(std::uint64_t scriptMask, const CharacterMap &characters)
{
    const auto &languages = ScriptCoverage::all();
    for (const std::string_view group : {"Latin", "Ecritures", "Typographie"}) {
        for (std::size_t i = 0; i < languages.size(); ++i) {
            if ((scriptMask >> i & 1) != 0 && group == languages[i].group)
                return ofEntry(i);
        }
    }
    return ownCharacters(characters);
}

} // namespace kerlune::PreviewSample
