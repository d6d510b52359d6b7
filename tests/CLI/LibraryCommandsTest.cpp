#include "CommandLineFixture.h"
#include "FcList.h"
#include "Platform/Linux/FontLinks.h"

#include <chrono>
#include <csignal>
#include <thread>

namespace kerlune {
namespace {

class LibraryCommandsTest : public CommandLineTest {
protected:
    LibraryCommandsTest()
    {
        setenv("FONTCONFIG_FILE", writeFontconfigFile(m_home, {fonts(), m_home / "data/fonts"}).c_str(), 1);
    }

    std::vector<std::string> linked() const { return FontLinks(m_home / "data/fonts/Kerlune").paths(); }
};

TEST_F(LibraryCommandsTest, ShowsTheFontsOfAFolderAtOnceAndLetsThemGoAgain)
{
    offer("plain.ttf");
    const std::string a = put("Mes polices/a.otf", "italic.ttf");
    const std::string b = put("Mes polices/sub/b.ttf", "family-9.ttf");
    Result added = run("folders add " + inHome("Mes polices/"));
    EXPECT_EQ(added.status, 0) << added.messages;
    EXPECT_THAT(added.messages, HasSubstr("2 polices trouvées."));
    EXPECT_EQ(added.output, (m_home / "Mes polices").string() + " — 2 polices\n");
    EXPECT_EQ(faces().size(), 3U);

    const json folder = runJson("folders").at(0);
    EXPECT_EQ(folder.at("path"), (m_home / "Mes polices").string());
    EXPECT_EQ(folder.at("files"), (json{a, b}));
    EXPECT_EQ(folder.at("autoActivate"), false);
    EXPECT_EQ(folder.at("isManagedLibrary"), false);

    put("Mes polices/c.ttf", "family-10.ttf");
    EXPECT_EQ(runJson("index").at("faces"), 4);
    EXPECT_EQ(run("folders auto " + inHome("Mes polices") + " on").status, 0);
    EXPECT_THAT(linked(), SizeIs(3));
    EXPECT_EQ(runJson("folders rescan").at(0).at("files").size(), 3U);

    const std::string id = folder.at("id");
    EXPECT_THAT(runJson("folders remove " + id), IsEmpty());
    EXPECT_EQ(faces().size(), 1U);
    EXPECT_THAT(linked(), IsEmpty());
    EXPECT_TRUE(fs::exists(a));
}

TEST_F(LibraryCommandsTest, SaysWhatIsWrongWithAFolder)
{
    offer("plain.ttf");
    put("Polices/a.ttf");
    run("folders add " + inHome("Polices"));
    expect({
        {"folders add " + inHome("Polices"), 1, "Ce dossier est déjà surveillé."},
        {"folders add " + inHome("absent"), 1, "n’est pas un dossier, ou n’existe pas"},
        {"folders remove nothing", 1, "Aucun dossier surveillé ne correspond à « nothing »."},
        {"folders auto nothing on", 1, "Aucun dossier surveillé ne correspond"},
        {"folders auto " + inHome("Polices") + " maybe", 2, "il faut « on » ou « off »"},
        {"folders add", 2, "Nombre d’arguments incorrect"},
        {"folders list extra", 2, "Nombre d’arguments incorrect"},
        {"folders watch", 2, "Action inconnue : « watch »."},
    });
    fs::rename(m_home / "Polices", m_home / "Ailleurs");
    EXPECT_THAT(run("folders").output, HasSubstr("Polices — 0 police, introuvable"));

    writeFile(m_home / "data/Kerlune/watched-folders.json", "nonsense");
    const Result unreadable = run("folders --json");
    EXPECT_EQ(unreadable.status, 0);
    EXPECT_EQ(json::parse(unreadable.output), json::array());
    EXPECT_THAT(unreadable.messages, HasSubstr("watched-folders.json"));
    EXPECT_EQ(readFile(m_home / "data/Kerlune/watched-folders.json"), "nonsense");
}

TEST_F(LibraryCommandsTest, ActivatesFilesFoldersAndFamilies)
{
    offer("plain.ttf");
    const std::string nine = put("Polices/neuf.ttf", "family-9.ttf");
    const std::string ten = put("Polices/dix\n.ttf", "family-10.ttf");
    run("folders add " + inHome("Polices"));
    EXPECT_EQ(run("activate --family 'essai 9'").messages, "1 fichier activé.\n");
    EXPECT_THAT(namesInFcList(), SizeIs(2));
    EXPECT_EQ(runJson("active"), json{nine});
    EXPECT_EQ(run("activate " + inHome("Polices")).messages, "1 fichier activé.\n");
    EXPECT_THAT(namesInFcList(), SizeIs(3));
    EXPECT_THAT(run("active").output, HasSubstr("dix\uFFFD.ttf\n"));

    // What fails is named and does not count as active; the others do.
    const std::string italic = put("ailleurs/i.ttf", "italic.ttf");
    const Result partly = run("activate " + inHome("ailleurs/i.ttf") + " " + inHome("absent.ttf"));
    EXPECT_EQ(partly.status, 1);
    EXPECT_EQ(partly.messages, "kerlune: « absent.ttf » : fichier introuvable\n1 fichier activé.\n");
    EXPECT_EQ(runJson("active"), (json{ten, nine, italic}));

    EXPECT_EQ(run("deactivate --family 'Essai 9'").status, 0);
    EXPECT_EQ(run("deactivate " + inHome("Polices") + " " + inHome("ailleurs")).messages, "2 fichiers désactivés.\n");
    EXPECT_EQ(runJson("active"), json::array());
    EXPECT_THAT(namesInFcList(), SizeIs(1));

    setenv("FONTCONFIG_FILE", writeFontconfigFile(m_home, {fonts()}).c_str(), 1); // without the links
    EXPECT_THAT(run("activate " + inHome("ailleurs")).messages, HasSubstr("les autres programmes ne les verront pas"));

    expect({
        {"activate", 2, "Donnez des chemins"},
        {"activate x --family y", 2, "Donnez des chemins"},
        {"activate --family 'Essai Plain'", 1, "tous les programmes voient déjà"},
        {"activate --family Personne", 1, "Aucune famille « Personne » dans l’index"},
    });
}

// The file, the links and what other programs see, after processes were killed at any moment of their work.
TEST_F(LibraryCommandsTest, AgreesWithItselfAfterKills)
{
    std::vector<std::string> activate{"activate"};
    for (int i = 0; i < 60; ++i)
        activate.push_back(put("Polices/" + std::to_string(i) + ".ttf"));
    std::vector<std::string> deactivate = activate;
    deactivate.front() = "deactivate";
    deactivate.resize(30);
    for (int moment = 0; moment < 30; ++moment) {
        const pid_t child = start(moment % 3 == 2 ? deactivate : activate);
        std::this_thread::sleep_for(std::chrono::microseconds(500 * moment));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        const std::vector<std::string> active = runJson("active");
        ASSERT_EQ(active, linked()) << moment;
        ASSERT_EQ(json::parse(readFile(m_home / "data/Kerlune/activation.json")), active) << moment;
        ASSERT_EQ(namesInFcList().size(), active.size()) << moment;
    }
}

TEST_F(LibraryCommandsTest, LosesNothingOfWhatProcessesDoAtTheSameTime)
{
    offer("plain.ttf");
    std::vector<pid_t> children;
    for (int i = 0; i < 6; ++i) {
        const std::string folder = "Polices " + std::to_string(i);
        const std::string file = put(folder + "/a.ttf");
        children.push_back(start({"folders", "add", m_home / folder}));
        children.push_back(start({"activate", file}));
    }
    expectDone(children);
    EXPECT_THAT(runJson("folders"), SizeIs(6));
    EXPECT_THAT(runJson("active"), SizeIs(6));
    EXPECT_THAT(linked(), SizeIs(6));
}

} // namespace
} // namespace kerlune
