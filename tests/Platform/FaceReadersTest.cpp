#include "Platform/CharacterSearch.h"
#include "Platform/FaceAxes.h"
#include "Platform/FaceContents.h"
#include "Platform/FaceFeatures.h"
#include "Platform/UnicodeBlocks.h"
#include "TempFolder.h"
#include "TestFonts.h"
#include "Testing.h"

#include <array>
#include <fstream>

namespace kerlune {
namespace {

using testing::AllOf;
using testing::Field;

std::string text(const std::vector<CharacterMap::Entry> &entries)
{
    std::string found;
    for (const auto &entry : entries)
        found += static_cast<char>(entry.character);
    return found;
}

TEST(FaceContents, ListsEveryCharacterInOrder)
{
    const std::string all = " !,.0123456789:;?ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    for (const char *name : {"plain.ttf", "cmap-0.ttf", "cmap-12.ttf", "cmap-unsorted.ttf"})
        EXPECT_EQ(text(readCharacters(*openFace(testFont(name)))), all) << name;
    EXPECT_THAT(readCharacters(*openFace(testFont("cmap-symbol.ttf"))), IsEmpty());
    EXPECT_EQ(text(readCharacters(*openFace(testFont("cmap-glyph0.ttf")))).find('A'), std::string::npos);
    EXPECT_THAT(readCharacters(*openFace(testFont("cmap-everything.ttf"))), SizeIs(0x110000 - 0x800));
}

// What the list says is what a look-up says, in fonts with every kind of range.
TEST(FaceContents, ListsWhatLookUpsFind)
{
    const std::string chinese = systemFont("truetype/wqy/wqy-zenhei.ttc");
    for (const std::string &path :
         {chinese, systemFont("truetype/dejavu/DejaVuSans.ttf"), systemFont("truetype/noto/NotoColorEmoji.ttf"),
          testFont("plain.ttf"), testFont("cmap-0.ttf"), testFont("cmap-12.ttf"), testFont("cmap-unsorted.ttf"),
          testFont("cmap-overlap.ttf"), testFont("cmap-glyph0.ttf"), testFont("cmap-symbol.ttf")}) {
        const CharacterMap map = openFace(path)->characterMap();
        std::vector<CharacterMap::Entry> expected;
        for (char32_t character = 0; character < 0x110000; ++character) {
            const std::uint32_t glyph = map.glyph(character);
            if (glyph != 0 && (character < 0xD800 || character > 0xDFFF))
                expected.push_back({character, glyph});
        }
        EXPECT_EQ(map.entries(), expected) << path;
    }
    for (const char32_t character : std::u32string_view(U"的一是不了Aé"))
        EXPECT_TRUE(openFace(chinese)->characterMap().contains(character)) << static_cast<std::uint32_t>(character);
}

TEST(FaceContents, MeasuresGlyphs)
{
    const auto face = openFace(testFont("variable.ttf")); // I: a box from 50 to 150, wider by 100 at wght 900
    const std::uint32_t glyph = face->characterMap().glyph(U'I');
    const GlyphMeasures regular = measureGlyph(face, glyph);
    EXPECT_EQ(regular.advance, 200);
    ASSERT_TRUE(regular.bounds);
    EXPECT_EQ(regular.bounds->left, 50);
    EXPECT_EQ(regular.bounds->right, 150);
    EXPECT_EQ(regular.bounds->bottom, 0);
    EXPECT_EQ(regular.bounds->top, 700);
    const GlyphMeasures black = measureGlyph(face, glyph, {{tag("wght"), 900}});
    EXPECT_EQ(black.advance, 300);
    EXPECT_EQ(black.bounds->right, 250);
    EXPECT_FALSE(measureGlyph(face, face->characterMap().glyph(U' ')).bounds);
    EXPECT_EQ(measureGlyph(face, 0xFFFFFF).advance, 0);
}

TEST(FaceContents, NamesCharacters)
{
    EXPECT_EQ(characterName(U'→'), "RIGHTWARDS ARROW");
    EXPECT_EQ(characterName(U'中'), "CJK UNIFIED IDEOGRAPH-4E2D");
    EXPECT_EQ(characterName(U'\t'), "control-0009");
    EXPECT_EQ(characterName(0xFFFFFFFF), "");
}

TEST(CharacterSearch, FindsByCharacterCodeAndName)
{
    const auto characters = readCharacters(*openFace(systemFont("truetype/dejavu/DejaVuSans.ttf")));
    const auto find = [&](std::string_view query) {
        std::u32string found;
        for (const auto &entry : searchCharacters(characters, query, false))
            found += entry.character;
        return found;
    };
    EXPECT_EQ(find("é"), U"é");
    EXPECT_EQ(find("→É"), U"É→");
    EXPECT_EQ(find("a"), U"a");
    EXPECT_EQ(find(" "), U" ");
    for (const char *query : {"U+2192", "u+2192", "0x2192", "2192", " 2192 "})
        EXPECT_EQ(find(query), U"→") << query;
    EXPECT_NE(find("face").find(U'☺'), std::u32string::npos) << "a word that is a number too";
    EXPECT_EQ(find("arrow right"), find("RIGHT  arrow"));
    EXPECT_GT(find("arrow right").size(), 20U);
    EXPECT_EQ(find("small letter a").substr(0, 2), U"aà"); // the word before those that begin with it
    EXPECT_NE(find("small letter a").find(U'æ'), std::u32string::npos);
    EXPECT_EQ(find("ette"), U"") << "no word begins so";
    EXPECT_EQ(find("U+110000"), U"");
    EXPECT_EQ(find("\xFF"), U"\uFFFD");
    EXPECT_EQ(find("").size(), characters.size());
    EXPECT_TRUE(searchCharacters(characters, "arrow", true).empty());
}

TEST(UnicodeBlocks, NamesBlocks)
{
    EXPECT_EQ(blockLabel(unicodeBlock(U'A')), "Latin de base");
    EXPECT_EQ(blockLabel(unicodeBlock(U'→')), "Flèches");
    EXPECT_EQ(blockLabel(unicodeBlock(U'\U0001F600')), "Émoticônes");
    EXPECT_EQ(blockLabel(unicodeBlock(U'\U00016F00')), "Miao"); // Unicode's own name
    EXPECT_FALSE(blockLabel(unicodeBlock(0x10FFFFF)).empty());
}

TEST(FaceAxes, ReadsAxesAndInstances)
{
    const FaceAxes space = readAxes(*openFace(testFont("variable.ttf")));
    EXPECT_THAT(space.axes, ElementsAre(VariationAxis{tag("wght"), "Axe wght", 100, 400, 900, false},
                                        VariationAxis{tag("wdth"), "Axe wdth", 75, 100, 125, true},
                                        VariationAxis{tag("slnt"), "Axe slnt", -12, 0, 0, false}));
    ASSERT_THAT(space.instances, SizeIs(4));
    EXPECT_EQ(space.instances[2].name, "Condensed Light");
    EXPECT_THAT(space.instances[2].coordinates,
                ElementsAre(AxisValue{tag("wght"), 300}, AxisValue{tag("wdth"), 75}, AxisValue{tag("slnt"), 0}));
    EXPECT_EQ(axisLabel(space.axes[0]), "Graisse");
    EXPECT_EQ(axisLabel({.tag = tag("GRAD"), .name = "Grade"}), "Grade");
    EXPECT_EQ(axisLabel({.tag = 0x58596100}), "XYa?");
    EXPECT_EQ(readAxes(*openFace(testFont("plain.ttf"))), FaceAxes());
}

TEST(FaceAxes, SurvivesHostileTables)
{
    for (const char *name : {"fvar-hostile.ttf", "long-instance-names.ttf"}) {
        const FaceAxes space = readAxes(*openFace(testFont(name)));
        for (const VariationAxis &axis : space.axes) {
            EXPECT_LE(axis.minimum, axis.standard) << name;
            EXPECT_LE(axis.standard, axis.maximum) << name;
        }
        EXPECT_LE(space.instances.size(), 60U) << name; // 20,000 characters in each name
    }
}

TEST(FaceFeatures, ReadsWhatTheFontOffers)
{
    const auto features = readFeatures(*openFace(testFont("features.ttf")));
    const auto named = [](Tag tag) { return Field(&FaceFeature::tag, tag); };
    ASSERT_THAT(features, ElementsAre(named(tag("cv01")), named(tag("kern")), named(tag("liga")), named(tag("salt")),
                                      named(tag("ss01")), named(tag("zzzz"))));
    EXPECT_THAT(features[0], AllOf(Field(&FaceFeature::ownName, Optional(std::string("A du titre"))),
                                   Field(&FaceFeature::valueNames, ElementsAre("haut", "large"))));
    EXPECT_TRUE(features[1].positions && !features[1].substitutes && features[1].isOnByDefault);
    EXPECT_TRUE(features[2].substitutes && features[2].isOnByDefault);
    EXPECT_EQ(features[2].alternates, 1U);
    EXPECT_EQ(features[3].alternates, 3U);
    EXPECT_EQ(features[4].ownName, "Formes rondes");
    EXPECT_FALSE(features[4].isOnByDefault || features[5].isOnByDefault);
    EXPECT_THAT(readFeatures(*openFace(testFont("plain.ttf"))), IsEmpty());
}

TEST(FaceFeatures, NamesRegisteredFeatures)
{
    EXPECT_EQ(featureLabel(tag("smcp")), "Petites capitales");
    EXPECT_EQ(featureLabel(tag("aalt")), "Toutes les variantes");
    EXPECT_EQ(featureLabel(tag("zero")), "Zéro barré");
    EXPECT_EQ(featureLabel(tag("ss07")), "Jeu stylistique 7");
    EXPECT_EQ(featureLabel(tag("cv99")), "Variante de caractère 99");
    for (const Tag other : {tag("ss00"), tag("ss21"), tag("cv00"), tag("cvxx"), tag("zzzz"), Tag{0}, ~Tag{0}})
        EXPECT_EQ(featureLabel(other), "");
}

// Whatever is cut off or points elsewhere, reading comes to its end, and inside the table.
TEST(FaceReaders, SurviveDamagedTables)
{
    std::ifstream stream(testFont("features.ttf"), std::ios::binary);
    const std::string sound(std::istreambuf_iterator<char>(stream), {});
    const TempFolder folder;
    const std::string path = folder / "damaged.ttf";
    std::size_t opened = 0;
    for (std::size_t at = 12; at < sound.size(); at += 37) {
        std::string damaged = sound;
        damaged[at] = static_cast<char>(~damaged[at]);
        std::ofstream(path, std::ios::binary) << (at % 2 == 0 ? damaged : sound.substr(0, at));
        const auto face = FontFace::open({path, 0, 0, {}});
        if (!face)
            continue;
        ++opened;
        readFeatures(**face);
        readAxes(**face);
        for (const auto &entry : readCharacters(**face))
            EXPECT_LT(entry.glyph, (*face)->glyphCount());
    }
    EXPECT_GT(opened, 20U);
    EXPECT_LE(readFeatures(*openFace(testFont("gsub-endless.ttf"))).size(), 1U);
}

} // namespace
} // namespace kerlune
