#include "Export/CssText.h"

#include "Testing.h"

#include <array>
#include <limits>

namespace kerlune {
namespace {

TEST(CssText, QuotesAnyName)
{
    struct Case {
        std::string text;
        std::string quoted;
    };
    const std::array cases{
        Case{"Inter", R"("Inter")"},
        Case{R"(The "Best" \ Font)", R"("The \"Best\" \\ Font")"},
        Case{"Écriture 中文 😀", "\"Écriture 中文 😀\""},
        Case{"a\nb\r\f", R"("a\a b\d \c ")"},         // a line end would break the string
        Case{"a\nb c", R"("a\a b c")"},               // "b" is no part of the number: a space parts them
        Case{"\x1F\x7F", R"("\1f \7f ")"},            // other control characters
        Case{std::string("a\0b", 3), "\"a\uFFFDb\""}, // CSS Syntax knows no U+0000
        Case{"a\xFF", "\"a\uFFFD\""},                 // not UTF-8
        Case{"</style>'", "\"</style>'\""},
        Case{"", "\"\""},
    };
    for (const Case &each : cases)
        EXPECT_EQ(cssString(each.text), each.quoted);
}

FontRecord record()
{
    FontRecord record;
    record.family = "Essai \"Un\"";
    record.filePath = "/fonts/Essai Gras (1).ttf";
    record.weight = 0.6; // 700
    return record;
}

TEST(CssText, DescribesAStaticFace)
{
    EXPECT_EQ(cssDeclarations(cssFace(record()), {{tag("smcp"), 1}, {tag("liga"), 0}}),
              "font-family: \"Essai \\\"Un\\\"\";\n"
              "font-style: normal;\n"
              "font-weight: 700;\n"
              "font-stretch: 100%;\n"
              "font-feature-settings: \"smcp\" 1, \"liga\" 0;\n");
    FontRecord italic = record();
    italic.isItalic = true;
    italic.slant = 0.4;
    italic.width = -0.5; // class 3
    EXPECT_EQ(cssFontFaceRule(cssFace(italic)), "@font-face {\n"
                                                "  font-family: \"Essai \\\"Un\\\"\";\n"
                                                "  src: url(\"Essai%20Gras%20%281%29.ttf\") format(\"truetype\");\n"
                                                "  font-style: italic;\n"
                                                "  font-weight: 700;\n"
                                                "  font-stretch: 75%;\n"
                                                "}\n");
    FontRecord slanted = record();
    slanted.slant = 0.3;
    EXPECT_THAT(cssDeclarations(cssFace(slanted)), HasSubstr("font-style: oblique 9deg;"));
}

TEST(CssText, GivesVariableFacesTheirRanges)
{
    const FaceAxes space{{{tag("wght"), "", 100, 400, 900, false},
                          {tag("wdth"), "", 62.5, 100, 125, false},
                          {tag("slnt"), "", -12, 0, 0, false}},
                         {}};
    const CssFace face = cssFace(record(), space);
    const std::string rule = cssFontFaceRule(face);
    EXPECT_THAT(rule, HasSubstr("font-weight: 100 900;"));
    EXPECT_THAT(rule, HasSubstr("font-stretch: 62.5% 125%;"));
    EXPECT_THAT(rule, HasSubstr("font-style: oblique 0deg 12deg;")); // CSS counts to the right, 'slnt' to the left
    const std::string chosen = cssDeclarations(face, {}, {{tag("wght"), 650.5}, {tag("GRAD"), -0.125}});
    EXPECT_THAT(chosen, HasSubstr("font-weight: 650.5;"));
    EXPECT_THAT(chosen, HasSubstr("font-style: normal;"));
    EXPECT_THAT(chosen, HasSubstr("font-variation-settings: \"wght\" 650.5, \"GRAD\" -0.125;"));
}

TEST(CssText, LeavesOutWhatCssCannotSay)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(cssVariationSettings({{0xFF00FF00, 1}, {tag("wght"), nan}}), "");
    EXPECT_EQ(cssVariationSettings({{tag("a\"b\\"), 1}}), "font-variation-settings: \"a\\\"b\\\\\" 1;\n");
    EXPECT_EQ(cssFeatureSettings({}), "");
    FontRecord odd = record();
    odd.filePath = "/fonts/LWFN";
    odd.weight = nan;
    odd.width = nan;
    EXPECT_THAT(cssFontFaceRule(cssFace(odd)), Not(HasSubstr("format(")));
}

} // namespace
} // namespace kerlune
