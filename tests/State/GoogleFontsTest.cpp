#include "Catalogs/InstalledFamilies.h"
#include "GoogleServer.h"
#include "LibraryProgram.h"

#include <cstdlib>

namespace kerlune {
namespace {

using nlohmann::json;

constexpr AppState::Delays kQuickRefresh = [] {
    AppState::Delays delays = kQuick;
    delays.foreignChanges = 20ms;
    return delays;
}();

// The state, with a service on the loopback address.
class GoogleFontsTest : public LibraryHome {
protected:
    GoogleFontsTest()
    {
        setenv("XDG_DATA_HOME", (m_home / "data").c_str(), 1); // where the trash is
        setCatalog({"Garnet", "Opal"});
        open();
    }
    ~GoogleFontsTest() override { unsetenv("XDG_DATA_HOME"); }

    void open()
    {
        m_program = std::make_unique<LibraryProgram>(m_directories, kQuickRefresh);
        m_state = &m_program->state;
    }
    static json catalogOf(const std::vector<std::string> &names)
    {
        json list = json::array();
        for (const std::string &name : names)
            list.push_back({{"family", name}, {"fonts", {{"400", json::object()}}}});
        return {{"familyMetadataList", list}};
    }
    void setCatalog(const std::vector<std::string> &names)
    {
        m_plan["metadata"] = {{"body", catalogOf(names).dump()}};
        m_server.setPlan(m_plan);
    }
    void load(bool force = false) { QCoro::waitFor(m_state->loadGoogleCatalog(force)); }
    std::vector<std::string> names() const
    {
        std::vector<std::string> found;
        for (const GoogleFontFamily &family : m_state->googleCatalog())
            found.push_back(family.family);
        return found;
    }
    std::size_t fetches() const { return m_server.requestsFor("/metadata/fonts"); }
    void ageCache(std::chrono::seconds age) const
    {
        fs::last_write_time(stateFile("google-fonts-catalog.json"), fs::file_time_type::clock::now() - age);
    }
    fs::path root() const { return m_home / "data/Kerlune/Google Fonts"; }

    GoogleServer m_server;
    json m_plan = json::object();
    std::unique_ptr<LibraryProgram> m_program;
    AppState *m_state = nullptr;
};

TEST_F(GoogleFontsTest, FetchesTheCatalogueWhenItsCopyIsMissingOrOldOrAskedFor)
{
    std::vector<bool> flags;
    const auto observer =
        m_state->googleCatalogLoading.observe([&] { flags.push_back(m_state->googleCatalogLoading()); });
    auto loading = m_state->loadGoogleCatalog(false);
    ASSERT_TRUE(waitUntil([&] { return m_state->googleCatalogLoading(); }));
    QCoro::waitFor(m_state->loadGoogleCatalog(true)); // one at a time
    QCoro::waitFor(std::move(loading));
    EXPECT_THAT(names(), ElementsAre("Garnet", "Opal"));
    EXPECT_THAT(flags, ElementsAre(true, false));
    EXPECT_EQ(fetches(), 1U);

    load();
    open();
    load();
    EXPECT_THAT(names(), ElementsAre("Garnet", "Opal"));
    EXPECT_EQ(fetches(), 1U);

    setCatalog({"Jade"});
    load(true);
    EXPECT_THAT(names(), ElementsAre("Jade"));
    EXPECT_EQ(fetches(), 2U);
    ageCache(604'801s);
    open();
    load();
    EXPECT_EQ(fetches(), 3U);
    load(); // the same list has a new date
    EXPECT_EQ(fetches(), 3U);
    writeFile(stateFile("google-fonts-catalog.json"), "[{]");
    open();
    load();
    EXPECT_THAT(names(), ElementsAre("Jade"));
    EXPECT_EQ(fetches(), 4U);
}

TEST_F(GoogleFontsTest, KeepsWhatItHasWhenTheServiceFails)
{
    load();
    const std::vector<std::pair<json, std::string>> failures{
        {{{"status", 503}}, "Google Fonts a répondu par une erreur (503)."},
        {{{"body", "{}"}}, "Le catalogue Google Fonts est illisible : son format a peut-être changé."}};
    const std::string cached = readFile(stateFile("google-fonts-catalog.json"));
    for (const auto &[answer, message] : failures) {
        m_server.setPlan({{"metadata", answer}});
        load(true);
        EXPECT_EQ(m_state->googleCatalogError(), message);
        EXPECT_FALSE(m_state->googleCatalogLoading());
        EXPECT_THAT(names(), ElementsAre("Garnet", "Opal"));
    }
    EXPECT_EQ(readFile(stateFile("google-fonts-catalog.json")), cached);
    m_server.setPlan(m_plan);
    load(true);
    EXPECT_EQ(m_state->googleCatalogError(), std::nullopt);
    m_server.stop();
    ageCache(604'801s);
    open();
    load();
    EXPECT_THAT(names(), ElementsAre("Garnet", "Opal"));
    EXPECT_TRUE(m_state->googleCatalogError());
}

TEST_F(GoogleFontsTest, InstallsActivatesAndRemovesAFamily)
{
    load();
    std::vector<double> progress;
    const auto observer = m_state->googleInstallProgress.observe([&] {
        if (const auto share = m_state->googleInstallProgress().find("Garnet");
            share != m_state->googleInstallProgress().end())
            progress.push_back(share->second);
    });
    auto installing = m_state->installGoogleFamily("Garnet");
    EXPECT_FALSE(QCoro::waitFor(m_state->installGoogleFamily("Garnet"))); // once at a time
    EXPECT_TRUE(QCoro::waitFor(std::move(installing)));
    EXPECT_THAT(m_state->googleInstalledFamilies(), ElementsAre("Garnet"));
    EXPECT_THAT(m_state->googleInstallProgress(), IsEmpty());
    EXPECT_EQ(progress.front(), 0);
    EXPECT_EQ(progress.back(), 1);
    const auto files = fontFilesIn(root() / "Garnet");
    ASSERT_THAT(files, SizeIs(1));
    EXPECT_EQ(linked(), files);
    EXPECT_EQ(m_state->notice(), (Notice{"« Garnet » installée (1 fichier).", false}));
    EXPECT_EQ(namesInFcList().size(), 1U); // every program sees it

    auto removing = m_state->removeGoogleFamily("Garnet");
    EXPECT_FALSE(QCoro::waitFor(m_state->removeGoogleFamily("Garnet")));
    EXPECT_FALSE(QCoro::waitFor(m_state->installGoogleFamily("Garnet")));
    EXPECT_TRUE(QCoro::waitFor(std::move(removing)));
    EXPECT_THAT(m_state->googleInstallErrors(), IsEmpty());
    EXPECT_THAT(linked(), IsEmpty());
    EXPECT_FALSE(fs::exists(root() / "Garnet"));
    EXPECT_THAT(m_state->googleInstalledFamilies(), IsEmpty());
    EXPECT_EQ(m_state->notice()->text, "« Garnet » retirée. Les fichiers sont dans la Corbeille.");
    EXPECT_TRUE(fs::is_directory(m_home / "data/Trash/files/Garnet"));
    EXPECT_THAT(readFile(m_home / "data/Trash/info/Garnet.trashinfo"), HasSubstr("Path="));
}

TEST_F(GoogleFontsTest, SaysWhyAFamilyIsNotInstalledOrRemoved)
{
    m_plan["font"] = {{"Opal", {{"body", "<html>"}}}};
    setCatalog({"Garnet", "Opal"});
    load();
    EXPECT_FALSE(QCoro::waitFor(m_state->installGoogleFamily("Opal")));
    EXPECT_THAT(m_state->googleInstallErrors(),
                ElementsAre(Pair("Opal", "Le fichier « Opal » n'est pas une police valide.")));
    EXPECT_FALSE(QCoro::waitFor(m_state->installGoogleFamily("Nowhere")));
    EXPECT_THAT(m_state->googleInstallErrors(),
                Contains(Pair("Nowhere", "Google Fonts ne propose aucun fichier pour « Nowhere ».")));
    EXPECT_FALSE(QCoro::waitFor(m_state->removeGoogleFamily("Garnet")));
    EXPECT_THAT(m_state->googleInstallErrors(), Contains(testing::Key("Garnet")));
    m_plan["font"] = json::object();
    m_server.setPlan(m_plan);
    EXPECT_TRUE(QCoro::waitFor(m_state->installGoogleFamily("Opal")));
    EXPECT_THAT(m_state->googleInstallErrors(), Not(Contains(testing::Key("Opal"))));
}

TEST_F(GoogleFontsTest, FollowsWhatOthersInstall)
{
    fs::create_directories(root());
    QCoro::waitFor(m_state->load());
    EXPECT_THAT(m_state->googleInstalledFamilies(), IsEmpty());
    put("other/x.ttf");
    fs::rename(m_home / "other", root() / "Jade");
    EXPECT_TRUE(waitUntil([&] { return m_state->googleInstalledFamilies().contains("Jade"); }));
}

} // namespace
} // namespace kerlune
