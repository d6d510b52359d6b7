#include "Catalogs/GoogleFamilyFiles.h"

#include "Catalogs/InstalledFamilies.h"
#include "Events.h"
#include "GoogleServer.h"
#include "Testing.h"

#include <QCoroTask>

namespace kerlune {
namespace {

using nlohmann::json;
using FilesCase = GoogleFontsCatalog::CatalogError::Case;

class GoogleFamilyFilesTest : public testing::Test {
protected:
    ~GoogleFamilyFilesTest() override { finishBackgroundWork(); }

    GoogleFamilyFiles::Outcome download(const std::string &name, std::vector<std::string> variants = {"400"})
    {
        m_progress.clear();
        return QCoro::waitFor(m_files.download({.family = name, .variants = std::move(variants)},
                                               [this](double share) { m_progress.push_back(share); }));
    }
    json font(const std::string &name, const std::string &path) const
    {
        return {{"filename", name}, {"url", m_server.url("/font/" + path)}};
    }
    static json listOf(const json &fonts, const json &texts = json::array())
    {
        return {{"body", ")]}'\n" + json{{"manifest", {{"fileRefs", fonts}, {"files", texts}}}}.dump()}};
    }
    std::vector<std::string> filesIn(const std::string &folder) const
    {
        std::vector<std::string> names;
        for (const auto &entry : fs::directory_iterator(m_root / folder))
            names.push_back(entry.path().filename());
        return names;
    }

    int m_argc = 0;
    QCoreApplication m_application{m_argc, nullptr};
    GoogleServer m_server;
    TempFolder m_home;
    fs::path m_root = m_home / "Google Fonts";
    HttpsClient m_client;
    GoogleFamilyFiles m_files{m_client,
                              GoogleAddresses::from(QString::fromStdString(m_server.url("/metadata/fonts")),
                                                    QString::fromStdString(m_server.url("/css2"))),
                              m_root, 500ms};
    std::vector<double> m_progress;
};

TEST_F(GoogleFamilyFilesTest, TakesTheListedFilesWithTheirLicence)
{
    m_server.setPlan({{"list",
                       {{"A/B", listOf({font("static/A-Regular.ttf", "1"), font("other/A-Regular.ttf", "2")},
                                       {{{"filename", "OFL.txt"}, {"contents", "free"}},
                                        {{"filename", "../../evil.txt"}, {"contents", "x"}}})}}},
                      {"font", {{"2", {{"file", testFont("italic.ttf")}}}}}});
    const auto family = download("A/B");
    ASSERT_TRUE(family) << family.error().description();
    EXPECT_FALSE(family->wasThere);
    EXPECT_EQ(family->folder, m_root / "A-B");
    EXPECT_THAT(family->fonts, ElementsAre(m_root / "A-B/A-Regular.ttf"));
    EXPECT_THAT(filesIn("A-B"), UnorderedElementsAre("A-Regular.ttf", "OFL.txt", "evil.txt", "family.json"));
    EXPECT_EQ(readFile(m_root / "A-B/OFL.txt"), "free");
    EXPECT_EQ(installedFamilies(m_root), (std::map<std::string, fs::path>{{"A/B", m_root / "A-B"}}));
    EXPECT_TRUE(std::is_sorted(m_progress.begin(), m_progress.end()));
    EXPECT_DOUBLE_EQ(m_progress.back(), 1);

    const std::size_t count = m_server.requests().size();
    const auto again = download("A/B");
    ASSERT_TRUE(again);
    EXPECT_TRUE(again->wasThere);
    EXPECT_EQ(again->fonts, family->fonts);
    EXPECT_EQ(m_server.requests().size(), count);
}

TEST_F(GoogleFamilyFilesTest, TakesTheStylesOfTheStyleSheetWhereNothingIsListed)
{
    m_server.setPlan({{"font", {{"A/1,400", {{"file", testFont("italic.ttf")}}}}}});
    const auto family = download("A", {"400", "400i"});
    ASSERT_TRUE(family) << family.error().description();
    EXPECT_THAT(family->fonts, SizeIs(2));
    for (const std::string &font : family->fonts)
        EXPECT_EQ(fs::path(font).stem(), openFace(font)->postScriptName()); // named by what they are
    EXPECT_THAT(m_server.requests()[1], HasSubstr("/css2?family=A:ital,wght@0,400%3B1,400"));
}

TEST_F(GoogleFamilyFilesTest, InstallsAllOfAFamilyOrNothingAndFetchesNothingTwice)
{
    json fonts = json::array();
    for (int i = 0; i < 9; ++i)
        fonts.push_back(font("A-" + std::to_string(i) + ".ttf", "a" + std::to_string(i)));
    const json list{{"A", listOf(fonts)}};
    struct Step {
        json answer; // for the last font
        FilesCase kind;
        std::string description;
    };
    const std::vector<Step> steps{
        {{{"status", 503}}, FilesCase::badResponse, "Google Fonts a répondu par une erreur (503)."},
        {{{"body", "<html>"}}, FilesCase::invalidFont, "Le fichier « A-8.ttf » n'est pas une police valide."},
        {{{"cut", 500}}, FilesCase::other, "Aucune police n'a pu être téléchargée. Vérifiez votre connexion."},
        {{{"stall", 5}}, FilesCase::other, "Aucune police n'a pu être téléchargée. Vérifiez votre connexion."},
    };
    for (const auto &[answer, kind, description] : steps) {
        m_server.setPlan({{"list", list}, {"font", {{"a8", answer}}}});
        const auto family = download("A");
        ASSERT_FALSE(family) << answer;
        EXPECT_EQ(family.error().kind, kind) << answer;
        EXPECT_EQ(family.error().description(), description);
        EXPECT_THAT(installedFamilies(m_root), IsEmpty()) << answer;
    }
    m_server.setPlan({{"list", list}});
    ASSERT_TRUE(download("A"));
    EXPECT_EQ(m_server.requestsFor("/font/a0"), 1U);
    EXPECT_EQ(m_server.requestsFor("/font/a8"), 1 + steps.size());
    EXPECT_FALSE(fs::exists(m_root / ".partial/A"));
    EXPECT_THAT(installedFamilies(m_root), SizeIs(1));
}

TEST_F(GoogleFamilyFilesTest, SaysWhyThereIsNothing)
{
    m_server.setPlan({{"css", {{"none", {{"body", "/* nothing */"}}}, {"400", {{"status", 400}}}}}});
    EXPECT_EQ(download("none").error().description(), "Google Fonts ne propose aucun fichier pour « none ».");
    EXPECT_EQ(download("400").error().description(), "Google Fonts a répondu par une erreur (400).");
    m_server.stop();
    EXPECT_EQ(download("A").error().description(), "Aucune police n'a pu être téléchargée. Vérifiez votre connexion.");
}

TEST_F(GoogleFamilyFilesTest, KeepsForeignNamesInsideTheRoot)
{
    for (const std::string &name : {std::string(".."), std::string("."), std::string("../x"), std::string(300, 'n'),
                                    std::string("a\0b", 3), std::string(".partial")}) {
        const auto family = download(name);
        ASSERT_TRUE(family) << name << ": " << family.error().description();
        EXPECT_EQ(family->folder.parent_path(), m_root) << name;
    }
    for (const char *name : {"../x", "..-x", "a-b"}) // two of them cannot have the folder that they would
        EXPECT_EQ(download(name)->wasThere, name == std::string("../x")) << name;
    EXPECT_THAT(installedFamilies(m_root), SizeIs(8));
    EXPECT_THAT(std::vector<fs::path>(fs::directory_iterator(m_home.path()), fs::directory_iterator()),
                ElementsAre(m_root));
}

} // namespace
} // namespace kerlune
