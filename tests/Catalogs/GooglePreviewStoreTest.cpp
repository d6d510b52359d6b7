#include "Catalogs/GooglePreviewStore.h"

#include "Catalogs/HttpsClient.h"
#include "Events.h"
#include "GoogleServer.h"
#include "Testing.h"

#include <QUrlQuery>

#include <algorithm>

namespace kerlune {
namespace {

class GooglePreviewStoreTest : public testing::Test {
protected:
    ~GooglePreviewStoreTest() override
    {
        m_store.reset();
        finishBackgroundWork();
    }

    static GoogleFontFamily family(const std::string &name, std::vector<std::string> variants = {"400"})
    {
        return {.family = name, .variants = std::move(variants)};
    }
    // True when the family has a preview in the end.
    bool request(const GoogleFontFamily &family)
    {
        m_store->request(family);
        EXPECT_TRUE(waitUntil([&] { return !m_store->isPending(family.family); }));
        EXPECT_NE(m_store->descriptor(family.family) != nullptr, m_store->hasFailed(family.family));
        return m_store->descriptor(family.family) != nullptr;
    }
    std::string cached(const std::string &name) const { return readFile(m_folder / name); }
    void restart() { m_store = std::make_unique<GooglePreviewStore>(m_subsets, m_directories); }

    int m_argc = 0;
    QCoreApplication m_application{m_argc, nullptr};
    GoogleServer m_server;
    TempFolder m_home;
    Directories m_directories{m_home.path(), m_home / "data", m_home / "data/Kerlune", m_home / "cache",
                              m_home / "config"};
    fs::path m_folder = GoogleSubsets::cacheDirectory(m_directories);
    HttpsClient m_client;
    GoogleSubsets m_subsets{m_client,
                            GoogleAddresses::from(QString::fromStdString(m_server.url("/metadata/fonts")),
                                                  QString::fromStdString(m_server.url("/css2"))),
                            m_folder, 500ms};
    std::unique_ptr<GooglePreviewStore> m_store = std::make_unique<GooglePreviewStore>(m_subsets, m_directories);
};

TEST_F(GooglePreviewStoreTest, AsksForTheSampleOnceAndKeepsTheFile)
{
    EXPECT_TRUE(request({.family = "A/B", .displayName = "Ä & B", .variants = {"300", "500"}}));
    const auto font = m_store->descriptor("A/B");
    EXPECT_EQ(font->filePath, m_folder / "A-B.ttf");
    EXPECT_EQ(cached("A-B.ttf"), readFile(testFont("plain.ttf")));
    EXPECT_THAT(
        m_server.requests(),
        ElementsAre("/css2?family=A%2FB:wght@300&text=" +
                        QUrl::toPercentEncoding(QString::fromStdString(GoogleSubsets::alphabet() + "Ä & B"), ":@,")
                            .toStdString(),
                    "/font/A%2FB"));
    m_store->request(family("A/B"));
    EXPECT_EQ(m_store->revision(), 1);
    restart();
    EXPECT_TRUE(request(family("A/B")));
    EXPECT_THAT(m_server.requests(), SizeIs(2)); // the file serves

    EXPECT_TRUE(request({.family = "Plain", .displayName = "", .variants = {"400", "700"}}));
    EXPECT_THAT(m_server.requests()[2], StartsWith("/css2?family=Plain&text="));
    EXPECT_THAT(m_server.requests()[2], EndsWith("%94Plain")); // after the last of the alphabet
}

TEST_F(GooglePreviewStoreTest, TakesNothingThatIsNoWholeFontAndAsksOnce)
{
    const std::string notUtf8 = "\xff\xfeurl(https://127.0.0.1/x)";
    const std::string sheet = "src: url(" + m_server.url("/font/") + "ok)";
    m_server.setPlan({{"css",
                       {{"not UTF-8", {{"base64", QByteArray(notUtf8.c_str()).toBase64().toStdString()}}},
                        {"no address", {{"body", "@font-face { src: local(x); }"}}},
                        {"down", {{"body", "url(http://127.0.0.1/x)"}}},
                        {"sheet cut", {{"cut", 100}}},
                        {"sheet slow", {{"stall", 20}}},
                        {"sheet endless", {{"endless", true}}},
                        {"sheet 404 with address", {{"status", 404}, {"body", sheet}}}}},
                      {"font",
                       {{"404", {{"status", 404}, {"file", testFont("plain.ttf")}}},
                        {"500", {{"status", 500}}},
                        {"201", {{"status", 201}, {"file", testFont("plain.ttf")}}},
                        {"moved", {{"redirect", m_server.url("/font/ok")}}},
                        {"cut", {{"cut", 5'000}}},
                        {"slow", {{"stall", 20}}},
                        {"endless", {{"endless", true}}},
                        {"empty", {{"body", ""}}},
                        {"closed", {{"close", true}}}}}});
    for (const char *name : {"not UTF-8", "no address", "down", "sheet cut", "sheet slow", "sheet endless", "404",
                             "500", "201", "cut", "slow", "endless", "empty", "closed"}) {
        EXPECT_FALSE(request(family(name))) << name;
        EXPECT_FALSE(fs::exists(m_folder / (std::string(name) + ".ttf"))) << name;
    }
    EXPECT_TRUE(request(family("moved")));
    EXPECT_TRUE(request(family("sheet 404 with address"))); // the status of a style sheet does not count
    const std::size_t count = m_server.requests().size();
    m_store->request(family("404"));
    EXPECT_FALSE(m_store->isPending("404"));
    EXPECT_EQ(m_server.requests().size(), count);
}

TEST_F(GooglePreviewStoreTest, NeverReplacesACachedFileThatIsNoFontButAnEmptyOne)
{
    m_server.setPlan({{"font", {{"html", {{"body", "<html>"}}}}}});
    EXPECT_FALSE(request(family("html"))); // it was checked before anything could draw with it
    EXPECT_EQ(cached("html.ttf"), "<html>");
    m_server.setPlan({});
    restart();
    EXPECT_FALSE(request(family("html")));
    EXPECT_EQ(m_server.requestsFor("/font/html"), 1U);

    writeFile(m_folder / "empty.ttf", "");
    fs::create_directories(m_folder / "folder.ttf");
    EXPECT_TRUE(request(family("empty")));
    EXPECT_EQ(cached("empty.ttf"), readFile(testFont("plain.ttf")));
    EXPECT_TRUE(request(family("folder"))); // what cannot be written down serves until the program ends
    EXPECT_EQ(m_server.requestsFor("/font/folder"), 1U);
}

TEST_F(GooglePreviewStoreTest, KeepsForeignNamesInsideTheFolder)
{
    for (const std::string &name : {std::string(".."), std::string("../../x"), std::string("a\0b", 3),
                                    std::string(300, 'n'), std::string("/etc/passwd")})
        EXPECT_TRUE(request(family(name))) << name;
    std::vector<std::string> outside;
    for (const auto &entry : fs::recursive_directory_iterator(m_home.path())) {
        if (entry.is_regular_file() && entry.path().parent_path() != m_folder)
            outside.push_back(entry.path());
    }
    EXPECT_THAT(outside, IsEmpty());
}

TEST_F(GooglePreviewStoreTest, FetchesAFamilyOnceForAllWhoWantIt)
{
    m_server.setPlan({{"font", {{"A", {{"file", testFont("plain.ttf")}, {"delay", 0.1}}}}}});
    const auto first = m_subsets.fetch("A", "abc", {});
    const auto second = m_subsets.fetch("A", "abcdef", {});
    EXPECT_TRUE(request(family("A")));
    EXPECT_TRUE(waitUntil([&] { return first.isFinished() && second.isFinished(); }));
    EXPECT_NE(first.result(), nullptr);
    EXPECT_EQ(first.result(), second.result());
    EXPECT_EQ(m_server.requests().size(), 2U);
}

TEST_F(GooglePreviewStoreTest, TakesFirstWhatWasAskedForLast)
{
    nlohmann::json fonts;
    for (int i = 0; i < 8; ++i)
        fonts["F" + std::to_string(i)] = {{"file", testFont("plain.ttf")}, {"delay", 1}};
    m_server.setPlan({{"font", fonts}});
    writeFile(m_folder / "F17.ttf", readFile(testFont("plain.ttf")));
    for (int i = 0; i < 20; ++i)
        m_store->request(family("F" + std::to_string(i)));
    ASSERT_TRUE(waitUntil([&] { return m_server.requestsFor("/font/") == 6; }));
    EXPECT_NE(m_store->descriptor("F17"), nullptr); // what is on disk waits for nobody
    for (const char *name : {"New", "F19", "F18"})
        m_store->request(family(name));
    ASSERT_TRUE(waitUntil([&] { return m_store->revision() == 21; }));
    std::vector<std::string> order;
    for (const std::string &request : m_server.requests()) {
        if (request.starts_with("/css2"))
            order.push_back(QUrlQuery(QUrl(QString::fromStdString(request)))
                                .queryItemValue(QStringLiteral("family"))
                                .toStdString());
    }
    ASSERT_EQ(order.size(), 20U);
    const auto at = [&](const char *name) { return std::find(order.begin(), order.end(), name) - order.begin(); };
    for (const char *name : {"New", "F19", "F18"})
        EXPECT_LT(at(name), 12) << name; // with the next six
    EXPECT_GE(at("F16"), 12);            // the last of those that wait as before
}

TEST_F(GooglePreviewStoreTest, ClearsTheFolderOfAnEarlierDesign)
{
    writeFile(m_home / "cache/GooglePreviews/A.ttf", "x");
    restart();
    EXPECT_FALSE(fs::exists(m_home / "cache/GooglePreviews"));
}

} // namespace
} // namespace kerlune
