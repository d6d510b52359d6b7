#include "Support/Text.h"

#include "Support/Uuid.h"
#include "Testing.h"

#include <QString>

#include <algorithm>
#include <vector>

namespace kerlune {
namespace {

TEST(NameCollator, SortsAsAFileBrowserDoes)
{
    const NameCollator collator("fr");
    std::vector<std::string> names{"Font 10", "Zapf", "élan", "Elan B", "font 9", "Arial", "Font 9 Bold", "Éden"};
    std::sort(names.begin(), names.end(),
              [&](const auto &a, const auto &b) { return collator.sortKey(a) < collator.sortKey(b); });
    EXPECT_THAT(names, ElementsAre("Arial", "Éden", "élan", "Elan B", "font 9", "Font 9 Bold", "Font 10", "Zapf"));
    EXPECT_EQ(collator.sortKey("ARIAL"), collator.sortKey("arial"));
    EXPECT_NE(collator.sortKey("Elan"), collator.sortKey("Élan"));

    const std::string longName(5000, 'x');
    EXPECT_LT(collator.sortKey(longName), collator.sortKey(longName + "x"));
}

TEST(NameCollator, DoesWithALocaleThatIsNoName)
{
    const NameCollator collator("en_US_" + std::string(300, 'x'));
    EXPECT_LT(collator.sortKey("Font 9"), collator.sortKey("font 10"));
}

TEST(NameCollator, DoesNotSortByBytesInThePosixLocale)
{
    setenv("LC_ALL", "C", 1);
    const NameCollator collator;
    EXPECT_LT(collator.sortKey("arial"), collator.sortKey("Zapf"));
    unsetenv("LC_ALL");
}

TEST(Text, LowersAndComparesWithoutTheLanguage)
{
    EXPECT_EQ(lowercased("Neue HAAS ÉÀ İ"), "neue haas éà i\u0307");
    EXPECT_TRUE(equalIgnoringCase("Élan-BOLD", "élan-bold"));
    EXPECT_FALSE(equalIgnoringCase("Elan", "Élan"));
}

TEST(Text, FoldsCaseAndDiacriticsAway)
{
    struct Case {
        const char *text;
        const char *folded;
    };
    for (const auto &[text, expected] : {
             Case{"", ""},
             {"Neue HAAS-9", "neue haas-9"},
             {"É", "e"},
             {"e\u0301", "e"},
             {"\u0301E\u0301\u0323", "e"},
             {"Ångström ÀÉÎÕÜ", "angstrom aeiou"},
             {"Straße STRASSE ẞ", "strasse strasse ss"},
             {"İIıi", "iiıi"},
             {"ﬃ Øŀ", "ffi øŀ"},
             {"ΆΣΑΣ ᾳ ας", "ασασ α ασ"},
             {"ЁЙ", "еи"},
             {"한국", "한국"},
             {"\u1112\u1161\u11AB국", "한국"},
             {"ক\u09C7\u09BE", "ক\u09CB"}, // marks that take space compose
             {"a\xC3", "a\uFFFD"},
             {"é\u0327漢É\u0301\u1112\u1161éx", "e漢e하ex"}, // Latin letters beside others
             {"é\xC3", "e\uFFFD"},
             {"\xE9t\xE9 \xF8\x88", "\uFFFDt\uFFFD \uFFFD\uFFFD"},
         })
        EXPECT_EQ(folded(text), expected) << text;

    for (char32_t character = 0; character < 0x30000; ++character) {
        if (character >= 0xD800 && character < 0xE000)
            continue;
        const std::string once = folded(QString::fromUcs4(&character, 1).toStdString());
        ASSERT_EQ(folded(once), once) << static_cast<std::uint32_t>(character);
    }
}

TEST(Text, KnowsWhatIsUtf8)
{
    for (const char *valid : {"", "abc", "é", "\U0001F600"})
        EXPECT_TRUE(isValidUtf8(valid)) << valid;
    for (const char *invalid : {"\xE9", "a\xC3", "\xED\xA0\x80", "\xF8\x88\x80\x80\x80", "\xC0\xAF"})
        EXPECT_FALSE(isValidUtf8(invalid));
    EXPECT_EQ(validUtf8("\xE9t\xC3\xA9"), "\uFFFDté");
}

TEST(Uuid, IsUpperCaseAndNew)
{
    const std::string uuid = newUuid();
    EXPECT_THAT(uuid, testing::MatchesRegex("[0-9A-F]+-[0-9A-F]+-4[0-9A-F]+-[89AB][0-9A-F]+-[0-9A-F]+"));
    EXPECT_EQ(uuid.size(), 36U);
    EXPECT_NE(uuid, newUuid());
}

} // namespace
} // namespace kerlune
