#include "Platform/TextShaping.h"

#include "TestFonts.h"
#include "Testing.h"

#include <cmath>

namespace kerlune {
namespace {

const char *const kSans = "truetype/dejavu/DejaVuSans.ttf"; // Latin, Hebrew, Arabic

ShapedLine shapeWith(const std::string &path, std::string_view text, const ShapingOptions &options = {.size = 10})
{
    return shape(openFace(path), text, options);
}

ShapedLine shapeSans(std::string_view text, std::vector<FeatureValue> features = {})
{
    return shapeWith(systemFont(kSans), text, {.size = 10, .features = std::move(features)});
}

std::vector<std::uint32_t> glyphs(const ShapedLine &line)
{
    std::vector<std::uint32_t> found;
    for (const ShapedGlyph &glyph : line.glyphs)
        found.push_back(glyph.glyph);
    return found;
}

std::vector<std::uint32_t> clusters(const ShapedLine &line)
{
    std::vector<std::uint32_t> found;
    for (const ShapedGlyph &glyph : line.glyphs)
        found.push_back(glyph.cluster);
    return found;
}

TEST(TextShaping, SetsGlyphsOneAfterTheOther)
{
    // The I of this font advances by 200 units.
    const ShapedLine line = shapeWith(testFont("plain.ttf"), "IaI", {.size = 100});
    ASSERT_THAT(clusters(line), ElementsAre(0, 1, 2));
    EXPECT_DOUBLE_EQ(line.glyphs[1].x, line.glyphs[0].advance);
    EXPECT_DOUBLE_EQ(line.glyphs[2].x, line.glyphs[0].advance + line.glyphs[1].advance);
    EXPECT_DOUBLE_EQ(line.width, line.glyphs[2].x + line.glyphs[0].advance);
    EXPECT_DOUBLE_EQ(line.glyphs[0].advance, 20);
    EXPECT_EQ(line.glyphs[0].glyph, line.glyphs[2].glyph);
}

TEST(TextShaping, ReadsFromRightToLeftAndJoins)
{
    const ShapedLine word = shapeSans("بيت");
    EXPECT_THAT(clusters(word), ElementsAre(4, 2, 0));
    const auto alone = shapeSans("ب").glyphs[0].glyph;
    EXPECT_NE(word.glyphs[2].glyph, alone) << "the initial form";
    EXPECT_LT(word.glyphs[0].x, word.glyphs[1].x);

    // The direction is that of the first strong character.
    EXPECT_THAT(clusters(shapeSans("ab אב")), ElementsAre(0, 1, 2, 5, 3));
    EXPECT_THAT(clusters(shapeSans("אב ab")), ElementsAre(5, 6, 4, 2, 0));
    EXPECT_THAT(clusters(shapeSans("אב 12")), ElementsAre(5, 6, 4, 2, 0)); // numbers go from left to right
}

TEST(TextShaping, SplitsWhereTheScriptChanges)
{
    // The vowel sign i stands before its consonant, although it comes after it in the text.
    const std::string devanagari = systemFont("truetype/lohit-devanagari/Lohit-Devanagari.ttf");
    const ShapedLine line = shapeWith(devanagari, "a कि");
    ASSERT_EQ(line.glyphs.size(), 4U);
    EXPECT_THAT(clusters(line), ElementsAre(0, 1, 2, 2));
    EXPECT_EQ(line.glyphs[3].glyph, shapeWith(devanagari, "क").glyphs[0].glyph);
    EXPECT_THAT(line.missingClusters, IsEmpty());
}

TEST(TextShaping, ObeysFeatures)
{
    EXPECT_EQ(shapeSans("fi").glyphs.size(), 1U);
    EXPECT_EQ(shapeSans("fi", {{tag("liga"), 0}}).glyphs.size(), 2U);
    EXPECT_LT(shapeSans("AV").width, shapeSans("AV", {{tag("kern"), 0}}).width - 0.1);
}

TEST(TextShaping, PutsMarksOnTheirBase)
{
    const ShapedLine line = shapeSans("x\u0301");
    ASSERT_EQ(line.glyphs.size(), 2U);
    EXPECT_EQ(line.glyphs[1].advance, 0);
    EXPECT_LT(line.glyphs[1].x, line.width);
    EXPECT_DOUBLE_EQ(line.width, shapeSans("x").width);
}

TEST(TextShaping, FollowsTheLanguage)
{
    const auto inLanguage = [](const std::string &language) {
        return glyphs(shapeWith(systemFont(kSans), "Ŋ", {.size = 10, .language = language}));
    };
    EXPECT_NE(inLanguage("se"), inLanguage("")); // Northern Sami has a form of its own
    EXPECT_EQ(inLanguage("no such language"), inLanguage(""));
}

TEST(TextShaping, FollowsTheDesignSpace)
{
    const std::string path = testFont("variable.ttf"); // I: 200 units, 300 at wght 900
    const auto width = [&](std::vector<AxisValue> coordinates, std::uint32_t instance = 0) {
        return shape(openFace(path, 0, instance), "I", {.size = 100, .coordinates = std::move(coordinates)}).width;
    };
    EXPECT_DOUBLE_EQ(width({}), 20);
    EXPECT_DOUBLE_EQ(width({{tag("wght"), 900}}), 30);
    EXPECT_DOUBLE_EQ(width({{tag("wght"), 1e9}, {tag("none"), 5}}), 30);
    EXPECT_DOUBLE_EQ(width({{tag("wght"), 650}}), 25);
    const auto bold = openFace(path)->otherInstances()[0].index; // wght 700
    EXPECT_NEAR(width({}, bold), 26, 0.01);
    EXPECT_DOUBLE_EQ(width({{tag("wght"), 400}}, bold), 20);
}

TEST(TextShaping, TellsWhatTheFaceLacks)
{
    EXPECT_THAT(shapeWith(testFont("plain.ttf"), "a中b中").missingClusters, ElementsAre(1, 5));
    EXPECT_THAT(shapeSans("אxא中").missingClusters, ElementsAre(5));
    EXPECT_THAT(shapeWith(testFont("cmap-0.ttf"), "Az").missingClusters, IsEmpty()); // an old Macintosh face
    EXPECT_THAT(shapeWith(testFont("cmap-symbol.ttf"), "Az").missingClusters, IsEmpty());
}

TEST(TextShaping, TakesAnyBytes)
{
    EXPECT_EQ(glyphs(shapeSans("a\xC3(\xFF")), glyphs(shapeSans("a\uFFFD(\uFFFD")));
    EXPECT_EQ(glyphs(shapeSans("\xED\xA0\x80")), glyphs(shapeSans("\uFFFD\uFFFD\uFFFD")));
    EXPECT_EQ(glyphs(shapeSans("a\nb\r\nc\u2029d\te")), glyphs(shapeSans("a b c d e")));
    EXPECT_THAT(clusters(shapeSans("a\x01\u0085\x7F"
                                   "b")),
                ElementsAre(0, 2, 5));
    EXPECT_THAT(shapeSans("").glyphs, IsEmpty());
    EXPECT_THAT(shapeSans("\x01\x02").glyphs, IsEmpty());
    EXPECT_THAT(shapeWith(testFont("upem-0.ttf"), "a").glyphs, IsEmpty());
    for (const double size : {0.0, -3.0, std::nan(""), HUGE_VAL})
        EXPECT_THAT(shapeWith(testFont("plain.ttf"), "a", {.size = size}).glyphs, IsEmpty()) << size;
    EXPECT_EQ(shapeSans(std::string(100'000, 'a')).glyphs.size(), kMostCharactersOfLine);
}

// HarfBuzz loses the tables of a face whose Graphite tables are broken, which the address sanitizer tells.
TEST(TextShaping, LeavesGraphiteAlone)
{
    EXPECT_EQ(glyphs(shapeWith(testFont("graphite-broken.ttf"), "abc")),
              glyphs(shapeWith(testFont("plain.ttf"), "abc")));
}

// Each of its 30 lookups puts ten letters in place of one.
TEST(TextShaping, GivesUpOnLinesThatGrowWithoutEnd)
{
    const ShapedLine line = shapeWith(testFont("gsub-bomb.ttf"), "aaaaaaaa");
    EXPECT_TRUE(line.isTooCostly);
    EXPECT_THAT(line.glyphs, IsEmpty());
    EXPECT_EQ(line.width, 0);
    EXPECT_FALSE(shapeWith(testFont("gsub-bomb.ttf"), "bcd").isTooCostly);
}

} // namespace
} // namespace kerlune
