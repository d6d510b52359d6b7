#include "Model/Classifier.h"

#include "Model/FontIndexer.h"
#include "Model/ScriptCoverage.h"
#include "Platform/Font.h"
#include "TestFonts.h"
#include "Testing.h"

namespace kerlune {
namespace {

FontClass classifyByName(const std::string &family)
{
    static const auto face = openFace(testFont("i-missing.ttf")); // nothing to measure: no other rule decides
    return Classifier::classify({family, false, 3, 1000, 0}, face);
}

TEST(Classifier, TakesTheFirstListWithAWordOfTheName)
{
    const std::pair<const char *, FontClass> cases[]{
        {"Open Sans", FontClass::script}, // "pen " with its space
        {"Pencil", FontClass::unknown},     {"Great HANDWRITING Sans", FontClass::script},
        {"Courier Prime", FontClass::slab}, {"Roboto Slab Mono", FontClass::slab},
        {"Fira Code", FontClass::mono},     {"Playfair Display", FontClass::display},
        {"3D Serif", FontClass::display},   {"Noto Color Emoji", FontClass::decorative},
        {"Pi Font", FontClass::decorative}, {"Pi", FontClass::unknown},
        {"Noto Serif", FontClass::serif},   {"PT Sans Serif", FontClass::sans},
        {"Book Antiqua", FontClass::serif}, {"Neue Haas Unica", FontClass::sans},
        {"Interstate", FontClass::sans},    {"ÉLATO", FontClass::sans},
        {"Zapfino", FontClass::unknown},
    };
    for (const auto &[family, expected] : cases)
        EXPECT_EQ(classifyByName(family), expected) << family;
}

TEST(Classifier, AsksPitchAndCoverageBeforeTheName)
{
    const auto face = openFace(testFont("plain.ttf"));
    EXPECT_EQ(Classifier::classify({"Brush Script", true, 0, 10, 0}, face), FontClass::mono);
    EXPECT_EQ(Classifier::classify({"Sans", false, 0, 10, 0}, face), FontClass::decorative);
}

TEST(Classifier, TakesSmallBasicLatinFacesForDisplay)
{
    const auto face = openFace(testFont("i-sans.ttf"));
    const std::uint64_t latin = *ScriptCoverage::bit("latin");
    EXPECT_EQ(Classifier::classify({"Essai", false, latin, 149, 0}, face), FontClass::display);
    EXPECT_EQ(Classifier::classify({"Essai", false, latin, 150, 0}, face), FontClass::sans);
    EXPECT_EQ(Classifier::classify({"Essai", false, latin | 2, 149, 0}, face), FontClass::sans);
    EXPECT_EQ(Classifier::classify({"Essai", false, latin, 149, 1U << 28}, face), FontClass::display);
}

TEST(Classifier, ReadsTheFamilyClassOfTheTable)
{
    const std::pair<int, FontClass> cases[]{
        {1, FontClass::serif},   {2, FontClass::serif},      {3, FontClass::serif}, {4, FontClass::slab},
        {5, FontClass::slab},    {7, FontClass::serif},      {8, FontClass::sans},  {9, FontClass::decorative},
        {10, FontClass::script}, {12, FontClass::decorative}};
    for (const auto &[number, expected] : cases) {
        const std::string name =
            "family-class-" + std::string(number < 10 ? "0" : "") + std::to_string(number) + ".ttf";
        const auto record = FontIndexer::extract({testFont(name), 0, 0, {}});
        ASSERT_TRUE(record) << name;
        EXPECT_EQ(record->classification, expected) << name;
    }
}

TEST(Classifier, MeasuresTheCapitalI)
{
    const std::pair<const char *, FontClass> cases[]{{"i-sans.ttf", FontClass::sans},
                                                     {"i-slab.ttf", FontClass::slab},
                                                     {"i-serif.ttf", FontClass::serif},
                                                     {"i-short.ttf", FontClass::unknown},
                                                     {"i-missing.ttf", FontClass::unknown}};
    for (const auto &[name, expected] : cases) {
        const auto record = FontIndexer::extract({testFont(name), 0, 0, {}});
        ASSERT_TRUE(record) << name;
        EXPECT_EQ(record->classification, expected) << name;
        for (const double size : {12.0, 1000.0})
            EXPECT_EQ(Classifier::measuredClass(**Font::create(openFace(testFont(name)), size)), expected) << name;
    }
}

} // namespace
} // namespace kerlune
