#include "Model/ScriptCoverage.h"

#include "TestFonts.h"
#include "Testing.h"

namespace kerlune {
namespace {

constexpr std::uint64_t kFnvOffset = 0xCBF29CE484222325;
constexpr std::uint64_t kFnvPrime = 0x100000001B3;

std::uint64_t mixed(std::uint64_t hash, std::uint32_t value)
{
    return (hash ^ value) * kFnvPrime;
}

// The stored masks depend on every character and on the order of the entries.
TEST(ScriptCoverage, HasNotChangedACharacterOrAPlace)
{
    std::uint64_t characters = kFnvOffset;
    std::uint64_t texts = kFnvOffset;
    for (const auto &language : ScriptCoverage::all()) {
        for (const char32_t c : language.required)
            characters = mixed(characters, c);
        characters = mixed(characters, U'\n');
        for (const char c : std::string(language.id) + "|" + language.labelKey + "|" + language.group + "\n")
            texts = mixed(texts, static_cast<unsigned char>(c));
    }
    EXPECT_EQ(ScriptCoverage::all().size(), 43U);
    EXPECT_EQ(characters, 0x036127FA89AAEF7BU);
    EXPECT_EQ(texts, 0x5276C4EE3F9979EEU);
}

TEST(ScriptCoverage, NumbersTheBitsOfStoredMasksByPlace)
{
    const auto &all = ScriptCoverage::all();
    for (std::size_t place = 0; place < all.size(); ++place)
        EXPECT_EQ(ScriptCoverage::bit(all[place].id), std::uint64_t{1} << place) << all[place].id;
    EXPECT_FALSE(ScriptCoverage::bit("Latin"));
    EXPECT_FALSE(ScriptCoverage::bit(""));
}

TEST(ScriptCoverage, NeedsEveryCharacterOfAnEntry)
{
    const std::uint64_t latin = *ScriptCoverage::bit("latin");
    const std::uint64_t french = *ScriptCoverage::bit("french");
    EXPECT_EQ(ScriptCoverage::mask(*openFace(testFont("plain.ttf"))), latin);
    EXPECT_EQ(ScriptCoverage::mask(*openFace(testFont("french.ttf"))) & (latin | french), latin | french);
    EXPECT_EQ(ScriptCoverage::mask(*openFace(testFont("french-no-y.ttf"))) & (latin | french), latin);
    EXPECT_EQ(ScriptCoverage::mask(*openFace(testFont("pictograms.ttf"))), 0U);
    EXPECT_EQ(ScriptCoverage::mask(*openFace(testFont("cmap-glyph0.ttf"))), 0U); // "A" leads to the missing glyph
}

TEST(ScriptCoverage, ListsAndGroupsEntries)
{
    const auto languages =
        ScriptCoverage::languages((std::uint64_t{1} << 28) | (std::uint64_t{1} << 1) | (std::uint64_t{1} << 50));
    ASSERT_EQ(languages.size(), 2U);
    EXPECT_STREQ(languages[0].id, "french");
    EXPECT_EQ(languages[1].label(), "Ligatures");
    EXPECT_TRUE(ScriptCoverage::languages(std::uint64_t{1} << 50).empty());
    EXPECT_THAT(ScriptCoverage::groups(), ElementsAre("Latin", "Ecritures", "Typographie"));
    EXPECT_EQ(ScriptCoverage::groupLabel("Ecritures"), "Écritures");
    EXPECT_EQ(ScriptCoverage::groupLabel("autre"), "autre");
}

} // namespace
} // namespace kerlune
