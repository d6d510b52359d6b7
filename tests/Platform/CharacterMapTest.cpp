#include "Platform/CharacterMap.h"

#include "TestFonts.h"

#include <gmock/gmock.h>

namespace kerlune {
namespace {

constexpr std::u32string_view kBasicLatin = U"ABCXYZabcxyz0123456789.,;:!?";

bool containsAll(const CharacterMap &map, std::u32string_view characters)
{
    return std::all_of(characters.begin(), characters.end(), [&](char32_t c) { return map.contains(c); });
}

TEST(CharacterMap, ReadsEachFormat)
{
    for (const char *name : {"plain.ttf", "cmap-0.ttf", "cmap-12.ttf", "cmap-unsorted.ttf"}) {
        const CharacterMap map = openFace(testFont(name))->characterMap();
        EXPECT_TRUE(containsAll(map, kBasicLatin)) << name;
        for (const char32_t absent : {U'é', U'\uFFFF', U'\U0001F600', U'\U0010FFFF'})
            EXPECT_FALSE(map.contains(absent)) << name << " " << static_cast<std::uint32_t>(absent);
    }
}

TEST(CharacterMap, TakesSymbolFacesForWhatTheyAre)
{
    const CharacterMap map = openFace(testFont("cmap-symbol.ttf"))->characterMap();
    EXPECT_FALSE(map.contains(U'A'));
}

TEST(CharacterMap, CountsTheMissingGlyphAsMissing)
{
    const CharacterMap map = openFace(testFont("cmap-glyph0.ttf"))->characterMap();
    EXPECT_FALSE(map.contains(U'A'));
    EXPECT_TRUE(map.contains(U'B'));
}

TEST(CharacterMap, ReadsLargeRealFonts)
{
    const CharacterMap chinese = openFace(systemFont("truetype/wqy/wqy-zenhei.ttc"))->characterMap();
    EXPECT_TRUE(containsAll(chinese, U"的一是不了Aé"));
    EXPECT_FALSE(chinese.contains(U'\U0001F600'));
    const CharacterMap emoji = openFace(systemFont("truetype/noto/NotoColorEmoji.ttf"))->characterMap();
    EXPECT_TRUE(emoji.contains(U'\U0001F600'));
}

} // namespace
} // namespace kerlune
