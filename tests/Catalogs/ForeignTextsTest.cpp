#include "Catalogs/GoogleAddresses.h"
#include "Catalogs/GoogleFileList.h"
#include "Catalogs/GoogleSubsets.h"
#include "Catalogs/SafeFileName.h"
#include "Catalogs/StyleSheet.h"
#include "Support/Text.h"
#include "Testing.h"

// What comes from the service, on its way to addresses and file names.

namespace kerlune {
namespace {

QString address(const std::optional<QUrl> &url)
{
    return url ? url->toString() : QStringLiteral("none");
}

TEST(StyleSheet, LeadsToItsFirstHttpsAddress)
{
    const std::vector<std::pair<std::string, QString>> cases{
        {"src: url(https://f.example/a.ttf) format('truetype')", QStringLiteral("https://f.example/a.ttf")},
        {"url(http://x/a) url(https://b/1) url(https://c/2)", QStringLiteral("https://b/1")},
        {"url('https://x/a')", QStringLiteral("none")},
        {"url(https://x/a", QStringLiteral("none")},
        {"url(https://) url(https://x/b)", QStringLiteral("https://x/b")},
        {"url(https://[broken) url(https://x/b)", QStringLiteral("none")}, // the first one is the one that counts
        {"url(HTTPS://x/a)", QStringLiteral("none")},
        {"", QStringLiteral("none")},
    };
    for (const auto &[styleSheet, expected] : cases)
        EXPECT_EQ(address(firstFontAddress(styleSheet)), expected) << styleSheet;
    EXPECT_THAT(allFontAddresses("url(https://a/1) url(https://[x) url(https://b/2) url(https://a/1)"),
                ElementsAre(QUrl(QStringLiteral("https://a/1")), QUrl(QStringLiteral("https://b/2"))));
}

TEST(GoogleAddresses, CompletesAddressesAndEncodesEverySign)
{
    const auto own = GoogleAddresses::from({}, {});
    EXPECT_EQ(own.metadata.path(), QStringLiteral("/metadata/fonts"));
    EXPECT_EQ(own.css.path(), QStringLiteral("/css2"));
    EXPECT_EQ(own.css.scheme(), QStringLiteral("https"));
    for (const char *base : {"https://h:1", "https://h:1/", "https://h:1/css2"})
        EXPECT_EQ(GoogleAddresses::from({}, QString::fromLatin1(base)).css.toString(),
                  QStringLiteral("https://h:1/css2"));
    const auto at =
        GoogleAddresses::from(QStringLiteral("https://h/base/metadata/fonts"), QStringLiteral("https://h/css2?key=1"));
    EXPECT_EQ(at.styleSheet("Open Sans", "ital,wght@1,300").toString(QUrl::FullyEncoded),
              QStringLiteral("https://h/css2?key=1&family=Open%20Sans:ital,wght@1,300"));
    EXPECT_EQ(at.styleSheet("A&B#C?D+E%41/é", std::nullopt, "+&#%\"").toString(QUrl::FullyEncoded),
              QStringLiteral("https://h/css2?key=1&family=A%26B%23C%3FD%2BE%2541%2F%C3%A9&text=%2B%26%23%25%22"));
    EXPECT_EQ(at.fileList("A B").toString(QUrl::FullyEncoded),
              QStringLiteral("https://h/base/download/list?family=A%20B"));
}

TEST(GoogleSubsets, AskFor128Characters)
{
    EXPECT_THAT(distinctCharacters(GoogleSubsets::alphabet()), SizeIs(128));
    EXPECT_EQ(QString::fromStdString(GoogleSubsets::alphabet()).size(), 128);
}

TEST(SafeFileName, NeverLeadsToAnotherFolder)
{
    EXPECT_EQ(fileNameFor("Open Sans", ".ttf"), "Open Sans.ttf");
    EXPECT_EQ(fileNameFor("A/B/../C", ".ttf"), "A-B-..-C.ttf");
    EXPECT_EQ(fileNameFor("..", ".ttf"), "...ttf");
    EXPECT_EQ(fileNameFor(std::string_view("a\0b", 3), ".ttf"), "a-b.ttf");
    EXPECT_EQ(visibleFileNameFor(".."), "_..");
    EXPECT_EQ(visibleFileNameFor("../../etc"), "_..-..-etc");
    EXPECT_EQ(visibleFileNameFor(""), "_");
    EXPECT_EQ(visibleFileNameFor("a\nb\x7f", ".ttf"), "a-b-.ttf");

    std::string accents;
    for (int i = 0; i < 150; ++i)
        accents += "é";
    const std::string cut = fileNameFor(accents, ".ttf");
    EXPECT_LE(cut.size(), 240U);
    EXPECT_TRUE(isValidUtf8(cut));
    EXPECT_TRUE(cut.ends_with(".ttf"));
    EXPECT_NE(fileNameFor(accents + "a", ".ttf"), fileNameFor(accents + "b", ".ttf"));
}

TEST(GoogleFileList, TakesFontsAndLicencesAndEachStyleOnce)
{
    const std::string font = R"({"filename": "static/A-Bold.ttf", "url": "https://h/b"})";
    const std::string variable = R"({"filename": "A[wght].ttf", "url": "https://h/v"})";
    const auto parsed = [](const std::string &fonts, const std::string &files = "[]") {
        return parseFileList(")]}'\n"
                             R"({"manifest": {"fileRefs": [)" +
                             fonts + R"(], "files": )" + files + "}}");
    };
    const auto list = parsed(
        font +
            R"(, {"filename": "again.ttf", "url": "https://h/b"}, {"filename": "x.exe", "url": "https://h/x"}, {"filename": "a.ttf"},
                                       {"filename": "a.ttf", "url": "http://h/x"}, 3)",
        R"([{"filename": "OFL.txt", "contents": "free"}, {"filename": "run.sh", "contents": "x"}])");
    ASSERT_TRUE(list);
    EXPECT_THAT(list->fonts,
                ElementsAre(GoogleFileList::Font{"static/A-Bold.ttf", QUrl(QStringLiteral("https://h/b"))}));
    EXPECT_THAT(list->texts, ElementsAre(GoogleFileList::Text{"OFL.txt", "free"}));
    const auto both = parsed(font + ", " + variable);
    ASSERT_TRUE(both);
    EXPECT_THAT(both->fonts, ElementsAre(GoogleFileList::Font{"A[wght].ttf", QUrl(QStringLiteral("https://h/v"))}));
    for (const char *body : {"", "[]", "{}", R"({"manifest": []})", R"({"manifest": {"fileRefs": {}}})", "<html>"})
        EXPECT_FALSE(parseFileList(body)) << body;
    EXPECT_FALSE(parsed("", R"([{"filename": "OFL.txt", "contents": "free"}])"));
}

} // namespace
} // namespace kerlune
