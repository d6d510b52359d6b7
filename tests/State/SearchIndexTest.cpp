#include "State/SearchIndex.h"

#include "Support/Text.h"
#include "Testing.h"

#include <random>

namespace kerlune {
namespace {

FontFamilyPointer family(const std::string &name, std::initializer_list<FontRecord> faces = {})
{
    FontFamily family{name, {}};
    for (const FontRecord &face : faces)
        family.faces.push_back(std::make_shared<const FontRecord>(face));
    return std::make_shared<const FontFamily>(family);
}

FontRecord face(const std::string &postScriptName, std::optional<std::string> foundry = {},
                std::optional<std::string> designer = {})
{
    FontRecord record;
    record.postScriptName = postScriptName;
    record.foundry = std::move(foundry);
    record.designer = std::move(designer);
    return record;
}

TEST(SearchIndex, FindsFamiliesByTheTextsOfTheirFaces)
{
    const std::vector<FontFamilyPointer> families{
        family("Éclair", {face("Eclair-Bold", "Fonderie", "Zoé"), face("Eclair-Thin", {}, "Noë")}),
        family("Straße", {face("Strasse")}),
        family("한글"),
        family("End"),
    };
    const SearchIndex index(families);
    struct Case {
        const char *needle;
        std::vector<std::size_t> positions;
    };
    for (const auto &[needle, positions] : {
             Case{"", {0, 1, 2, 3}},
             {"e", {0, 1, 3}},
             {"ÉCLAIR ECLAIR-BOLD FONDERIE ZOE ECLAIR-THIN NOE", {0}}, // the whole haystack of a family
             {"thin noé", {0}},
             {"zoe noe", {}},
             {"STRASSE strasse", {1}},
             {"한", {2}},
             {"noe strasse", {}}, // in two families
             {"noestrasse", {}},
             {"d", {0, 3}},
             {"end and more than all that there is behind it, to the end of the text and still further on", {}},
             {"\xFF", {}},
         }) {
        EXPECT_EQ(index.positions(folded(needle)), positions) << needle;
        for (std::size_t i = 0; i < families.size(); ++i) {
            const bool isIn = std::count(positions.begin(), positions.end(), i) > 0;
            EXPECT_EQ(index.matches(families[i]->name, folded(needle)), isIn) << needle << ", " << i;
        }
    }
    EXPECT_THAT(index.positions("\xFFstra"), IsEmpty()); // not folded text
    EXPECT_THAT(index.positions("\xFF"), IsEmpty());
    EXPECT_FALSE(index.matches("Other", ""));
    EXPECT_THAT(SearchIndex().positions("a"), IsEmpty());
}

TEST(SearchIndex, FindsWhatANaiveSearchFinds)
{
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp): the same texts in every run
    const auto letters = [&](std::size_t most) {
        std::string text(random() % (most + 1), ' ');
        for (char &letter : text)
            letter = "aab"[random() % 3];
        return text;
    };
    for (int round = 0; round < 200; ++round) {
        std::vector<FontFamilyPointer> families;
        std::vector<std::string> haystacks;
        for (std::size_t count = random() % 300; count > 0; --count) {
            families.push_back(family(letters(12), {face(letters(round % 2 == 0 ? 8 : 150))}));
            haystacks.push_back(families.back()->name + " " + families.back()->faces[0]->postScriptName);
        }
        const SearchIndex index(families);
        for (std::size_t length = 1; length < 80; length = length * 3 / 2 + 1) {
            const std::string needle = letters(length) + "b";
            std::vector<std::size_t> expected;
            for (std::size_t i = 0; i < haystacks.size(); ++i) {
                if (haystacks[i].find(needle) != std::string::npos)
                    expected.push_back(i);
            }
            ASSERT_EQ(index.positions(needle), expected) << round << ": " << needle;
        }
    }
}

} // namespace
} // namespace kerlune
