#include "CommandLineFixture.h"
#include "GoogleServer.h"

namespace kerlune {
namespace {

class GoogleCommandTest : public CommandLineTest {
protected:
    GoogleCommandTest()
    {
        json list = json::array();
        for (const char *name : {"Garnet", "Opal", "Jade/Stone"})
            list.push_back({{"family", name}, {"category", "Serif"}, {"fonts", {{"400", json::object()}}}});
        m_plan["metadata"] = {{"body", ")]}'\n" + json{{"familyMetadataList", list}}.dump()}};
        m_plan["font"] = {{"Jade/Stone", {{"status", 404}}}};
        m_server.setPlan(m_plan);
    }

    GoogleServer m_server;
    json m_plan;
};

TEST_F(GoogleCommandTest, PrintsTheCatalogueAndFetchesItWhenItMust)
{
    const json catalog = runJson("google");
    ASSERT_THAT(catalog, SizeIs(3));
    EXPECT_EQ(catalog[0].at("family"), "Garnet");
    EXPECT_THAT(catalog[0], SizeIs(9));
    EXPECT_THAT(run("google catalog").output, HasSubstr("Garnet — Serif, 1 style\n"));
    EXPECT_EQ(m_server.requestsFor("/metadata"), 1U);
    EXPECT_EQ(run("google catalog --refresh").status, 0);
    EXPECT_EQ(m_server.requestsFor("/metadata"), 2U);
    m_server.stop();
    EXPECT_THAT(runJson("google catalog"), SizeIs(3));
    expect({{"google catalog --refresh", 1, "Catalogue indisponible"}});
}

TEST_F(GoogleCommandTest, FetchesSamples)
{
    const json preview = runJson("google preview opal");
    EXPECT_EQ(preview.at("family"), "Opal");
    EXPECT_EQ(preview.at("path"), (m_home / "cache/Kerlune/GoogleSubsets/Opal.ttf").string());
    EXPECT_EQ(run("google preview Jade/Stone").status, 1);

    const Result subsets = run("google subsets --json");
    EXPECT_EQ(subsets.status, 0);
    EXPECT_EQ(json::parse(subsets.output).at("ready"), 2);
    EXPECT_EQ(json::parse(subsets.output).at("families"), 3);
    EXPECT_THAT(subsets.messages, HasSubstr("1 famille n’a pas pu être préparée"));
    EXPECT_EQ(m_server.requestsFor("/font/Opal"), 1U);
    EXPECT_EQ(m_server.requestsFor("/font/Garnet"), 1U);
}

TEST_F(GoogleCommandTest, InstallsAndRemovesFamilies)
{
    const json installed = runJson("google install garnet");
    EXPECT_EQ(installed.at("family"), "Garnet");
    ASSERT_THAT(installed.at("files"), SizeIs(1));
    const std::string file = installed.at("files")[0];
    EXPECT_EQ(fs::path(file).parent_path(), m_home / "data/Kerlune/Google Fonts/Garnet");
    EXPECT_EQ(runJson("active"), json::array({file}));
    EXPECT_THAT(run("google").output, HasSubstr("Garnet — Serif, 1 style, installée\n"));
    EXPECT_EQ(run("google install Garnet").status, 0); // is there already
    EXPECT_EQ(m_server.requestsFor("/font/Garnet"), 1U);

    const Result removed = run("google remove GARNET --json");
    EXPECT_EQ(removed.status, 0);
    EXPECT_EQ(json::parse(removed.output), (json{{"family", "Garnet"}}));
    EXPECT_THAT(removed.messages, HasSubstr("Les fichiers sont dans la Corbeille."));
    EXPECT_FALSE(fs::exists(file));
    EXPECT_TRUE(fs::exists(m_home / "data/Trash/files/Garnet"));
    EXPECT_EQ(runJson("active"), json::array());
}

TEST_F(GoogleCommandTest, SaysWhatFailed)
{
    expect({
        {"google preview Nowhere", 1, "Nowhere"},
        {"google install Nowhere", 1, "Nowhere"},
        {"google install Jade/Stone", 1, "Google Fonts a répondu par une erreur (404)."},
        {"google remove Garnet", 1, "installée"},
        {"google preview", 2, "preview"},
        {"google install A B", 2, "install"},
        {"google sing", 2, "sing"},
    });
    setenv("KERLUNE_GOOGLE_METADATA_URL", "http://127.0.0.1:1/metadata/fonts", 1);
    expect({{"google catalog --refresh", 1, "HTTPS"}});
}

} // namespace
} // namespace kerlune
