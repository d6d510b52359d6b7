#include "State/Filters.h"

#include "Model/ScriptCoverage.h"
#include "State/SidebarSelection.h"
#include "Testing.h"

#include <nlohmann/json.hpp>

namespace kerlune {
namespace {

Filters everything()
{
    return {.search = "Éléphant",
            .classes = {FontClass::serif, FontClass::sans},
            .onlyVariable = true,
            .onlyMonospace = true,
            .onlyColor = true,
            .onlyItalic = true,
            .hideItalic = true,
            .languageBits = 0x8000'0000'0000'0001,
            .weightRange = {300, 700},
            .riskyLicenseOnly = true,
            .requiredGlyphs = "ß ",
            .tags = {"b", "a"}};
}

TEST(Filters, KeepEveryFieldInTheirJson)
{
    const nlohmann::json json = nlohmann::json::parse(*filtersToText(everything()));
    EXPECT_EQ(json, nlohmann::json::parse(R"({"search": "Éléphant", "classes": [0, 1], "onlyVariable": true,
        "onlyMonospace": true, "onlyColor": true, "onlyItalic": true, "hideItalic": true,
        "languageBits": 9223372036854775809, "weightRange": [300, 700], "riskyLicenseOnly": true,
        "requiredGlyphs": "ß ", "tags": ["a", "b"]})"));
    EXPECT_EQ(decodeFilters(json), everything());
    EXPECT_EQ(filtersToText({.search = "\xFF"}), std::nullopt);
}

TEST(Filters, TakeDefaultsForMissingKeysAndNothingForWrongValues)
{
    EXPECT_EQ(filtersFromText("{}"), Filters());
    EXPECT_EQ(filtersFromText(R"({"weightRange": [400.0, 400], "tags": null, "later": {}})"),
              (Filters{.weightRange = {400, 400}}));
    for (const char *wrong :
         {"", "[]", "null", R"({"search": 1})", R"({"classes": [8]})", R"({"classes": [-1]})", R"({"classes": 1})",
          R"({"onlyColor": 1})", R"({"languageBits": -1})", R"({"languageBits": 1.5})", R"({"languageBits": 1e300})",
          R"({"weightRange": [700, 300]})", R"({"weightRange": [100]})", R"({"weightRange": [0, 99999999999]})",
          R"({"tags": ["a", 1]})", R"({"requiredGlyphs": ["a"]})", R"({"search": "a")"})
        EXPECT_EQ(filtersFromText(wrong), std::nullopt) << wrong;
}

TEST(Filters, AreActiveWithAnyFieldOffItsDefault)
{
    EXPECT_FALSE(Filters().isActive());
    for (const Filters &filters :
         {Filters{.search = " "}, Filters{.classes = {FontClass::unknown}}, Filters{.hideItalic = true},
          Filters{.languageBits = 1}, Filters{.weightRange = {100, 800}}, Filters{.requiredGlyphs = " "},
          Filters{.tags = {""}}})
        EXPECT_TRUE(filters.isActive());
}

TEST(Filters, AreSummedUpInOneLine)
{
    EXPECT_EQ(summary({}), "Aucun critère");
    Filters filters = everything();
    filters.languageBits = *ScriptCoverage::bit("french") | *ScriptCoverage::bit("greek");
    const auto languages = ScriptCoverage::languages(filters.languageBits);
    EXPECT_EQ(summary(filters), "recherche « Éléphant » · Sans serif, Serif · tags : a, b · variables · monospace · "
                                "couleur · italiques · sans italiques · " +
                                    languages[0].label() + ", " + languages[1].label() +
                                    " · graisse 300–700 · licence restrictive · glyphes « ß  »");
}

TEST(SidebarSelection, IsWrittenAsOneWordWithItsPayload)
{
    for (const char *text :
         {"all", "favorites", "recents", "variable", "color", "duplicates", "adobeFonts", "googleFonts",
          "class:decorative", "folder:A:B", "tag:Projet : été", "collection:1", "smart:2"}) {
        const auto selection = selectionFromText(text);
        ASSERT_TRUE(selection) << text;
        EXPECT_EQ(selectionText(*selection), text);
    }
    for (const char *wrong : {"", "All", "class:", "class:Serif", "class:8", "tag:", "tag", "all:", "dossier:1"})
        EXPECT_EQ(selectionFromText(wrong), std::nullopt) << wrong;
}

} // namespace
} // namespace kerlune
