#include "CommandLineFixture.h"

#include <sqlite3.h>

#include <chrono>
#include <csignal>
#include <set>
#include <thread>

namespace kerlune {
namespace {

class StateCommandsTest : public CommandLineTest {
protected:
    std::vector<std::string> families(const std::string &options = {}) const
    {
        std::vector<std::string> names;
        for (const json &family : runJson("families " + options))
            names.push_back(family.at("name"));
        return names;
    }
    std::string id(const std::string &arguments) const // that a command prints
    {
        const Result result = run(arguments);
        EXPECT_EQ(result.status, 0) << arguments << ": " << result.messages;
        return result.output.substr(0, result.output.find('\n'));
    }
};

TEST_F(StateCommandsTest, EachOptionIsAFilter)
{
    offerAll({"plain.ttf", "variable.ttf", "collection.ttc", "mono-post.ttf", "family-class-04.ttf",
              "family-class-10.ttf", "color-colr.ttf", "italic.ttf", "os2-10.ttf", "no-embedding.ttf", "french.ttf",
              "french-no-y.ttf", "family-9.ttf", "family-10.ttf", "names-shift-jis.ttf", "names-mac-roman.ttf"});
    const std::pair<const char *, std::vector<std::string>> cases[]{
        {"--search ÉLODIE", {"Essai Plain: Regular"}},
        {"--search フォント", {"フォント: Regular"}},
        {"--class mono slab --class=script",
         {"Essai Classe 04: Regular", "Essai Classe 10: Regular", "Essai Courier: Regular"}},
        {"--variable", {"Essai Variable: Regular Bold Condensed Light Slanted"}},
        {"--monospace", {"Essai Courier: Regular"}},
        {"--color", {"Essai Calques: Regular"}},
        {"--risky-license", {"Essai Interdit: Regular"}},
        {"--language latin french", {"Essai Accents Y: Regular"}},
        {"--italic", {"Essai Italic: Regular", "Essai Variable: Slanted"}},
        {"--no-italic --weight 650-900", {"Essai Collection: Bold", "Essai Court: Regular", "Essai Variable: Bold"}},
        {"--weight 300", {"Essai Variable: Condensed Light"}},
        {"--glyphs 'a Ÿ'", {"Essai Accents Y: Regular"}},
        {"--weight 700 --glyphs I --search 'essai c'", {"Essai Collection: Bold", "Essai Court: Regular"}},
    };
    const std::vector<json> records = faces();
    for (const auto &[options, expected] : cases) {
        std::vector<std::string> found;
        for (const json &family : runJson(std::string("families ") + options)) {
            found.push_back(family.at("name").get<std::string>() + ":");
            for (const json &face : family.at("faces")) {
                found.back() += " " + face.at("style").get<std::string>();
                EXPECT_THAT(records, Contains(face)) << options;
            }
        }
        EXPECT_EQ(found, expected) << options;
    }
    EXPECT_THAT(run("families --variable").output, "Essai Variable — Display, 4 graisses\n");
}

TEST_F(StateCommandsTest, TakesTextsAsTheyAreTyped)
{
    offerAll({"plain.ttf", "variable.ttf"});
    EXPECT_THAT(families("--search= --variable --class= --weight '' --tag '' --selection ''"),
                ElementsAre("Essai Variable"));
    EXPECT_THAT(families("--glyphs ' '"), ElementsAre("Essai Plain", "Essai Variable"));
    expect({
        {"families --search -x", 0, "Aucune famille ne correspond. Filtres : recherche « -x »."},
        {"families --search=-x", 0, "« -x »"},
        {"families --search --json", 0, "« --json »"},
        {"families --search '[a,b]'", 0, "« [a,b] »"},
        {"families --glyphs -", 0, "glyphes « - »"},
        {"families --glyphs --", 0, "glyphes « -- »"},
        {"families --glyphs '{}'", 0, "glyphes « {} »"},
        {"families --tag=-x '[y]' --tag z", 0, "tags : -x, [y], z."},
        {"families --search a$(printf '\\033')b", 0, "recherche « a\uFFFDb »"},
        {"families --italic --no-italic", 0, "italiques · sans italiques"},
        {"families --selection tag:Absent --weight 400", 0, "Sélection : tag:Absent. Filtres : graisse 400–400."},
    });
    EXPECT_EQ(run("tags add -- -x 'Essai Plain'").status, 0);
    EXPECT_EQ(run("tags add '[a,b]' 'Essai Plain'").status, 0);
    EXPECT_EQ(run("tags add list 'Essai Plain'").status, 0);
    EXPECT_THAT(families("--tag=-x '[a,b]' list"), ElementsAre("Essai Plain"));
}

TEST_F(StateCommandsTest, RefusesWhatIsNone)
{
    offerAll({"plain.ttf"});
    run("collections create Deux");
    run("collections create Deux");
    std::vector<Case> cases{
        {"families --class gothic", 2, "sans, serif, slab, mono, script, display, decorative, unknown"},
        {"families --language latin klingon", 2, "« klingon ». Les langues sont : latin, french, "},
        {"families --selection nothing", 2, "all, favorites, recents"},
        {"families --selection class:gothic", 2, "decorative, unknown"},
        {"families --selection folder:/absent", 1, "Aucun dossier surveillé ne correspond à « /absent »."},
        {"families --selection collection:Absente", 1, "Aucune collection « Absente »."},
        {"families --selection smart:Absente", 1, "Aucune collection intelligente « Absente »."},
        {"families --selection collection:Deux", 2, "donnez l’un des identifiants"},
        {"families --search $(printf '\\377')", 2, "n’est pas de l’UTF-8 valide"},
        {"tags add $(printf '\\377') 'Essai Plain'", 2, "n’est pas de l’UTF-8 valide"},
        {"families --search", 2, "« --search » demande une valeur, et une seule."},
        {"families --search a --search b", 2, "« --search » demande une valeur, et une seule."},
        {"families Essai", 2, "« Essai »"},
        {"tags paint x", 2, "Action inconnue : « paint »."},
        {"tags add x", 2, "Nombre d’arguments incorrect pour « add »."},
        {"tags add ' ' 'Essai Plain'", 2, "Un tag ne peut pas être vide."},
        {"tags add x 'Essai Plain' Absente", 1, "Aucune famille « Absente » dans l’index"},
        {"tags rename Absent y", 1, "Aucun tag « Absent »."},
        {"collections delete Deux", 2, "donnez l’un des identifiants"},
        {"collections add Absente 'Essai Plain'", 1, "Aucune collection « Absente »."},
        {"collections create ' '", 2, "ne peut pas être vide"},
        {"favorites add Absente 'Essai Plain'", 1, "Aucune famille « Absente »"},
        {"recents add Absente", 1, "Aucune famille « Absente »"},
        {"smart save Rien", 2, "Il faut au moins un filtre."},
        {"smart save Tout --weight 100-900", 2, "Il faut au moins un filtre."},
        {"smart list --variable", 2, "« list » ne prend pas de filtre."},
        {"smart update Absente --variable", 1, "Aucune collection intelligente « Absente »."},
    };
    for (const char *weight : {"700-300", "99", "100-901", "-400", "400-", "4e2", "400-500-600", "300,5"})
        cases.push_back({"families --weight " + std::string(weight), 2, "de 100 à 900"});
    expect(cases);
    EXPECT_THAT(runJson("tags"), IsEmpty());
    EXPECT_THAT(runJson("favorites"), IsEmpty());
}

TEST_F(StateCommandsTest, TagsFamilies)
{
    offerAll({"plain.ttf", "family-9.ttf", "family-10.ttf"});
    EXPECT_EQ(run("tags add ' Titres ' 'essai 9' 'Essai 10' 'ESSAI 9'").messages, "Titres — 2 familles\n");
    EXPECT_EQ(run("tags add Titres 'Essai 9'").status, 0);
    EXPECT_EQ(run("tags add 'Tag 10' 'Essai Plain'").status, 0);
    EXPECT_EQ(runJson("tags add 'Tag 9' 'Essai Plain' 'Essai 9'"),
              (json{{{"name", "Tag 9"}, {"count", 2}, {"families", {"Essai 9", "Essai Plain"}}},
                    {{"name", "Tag 10"}, {"count", 1}, {"families", {"Essai Plain"}}},
                    {{"name", "Titres"}, {"count", 2}, {"families", {"Essai 10", "Essai 9"}}}}));
    EXPECT_THAT(families("--tag Titres 'Tag 9'"), ElementsAre("Essai 9"));
    EXPECT_THAT(run("tags rename 'Tag 9' Titres").messages, HasSubstr("« Titres » existait déjà"));
    EXPECT_EQ(run("tags rename 'Tag 10' Affiches").messages, "Affiches — 1 famille\n");
    EXPECT_EQ(run("tags remove Titres 'essai 10' 'Essai 10' Personne").messages,
              "kerlune: La famille « Personne » n’y est pas.\nTitres — 2 familles\n");
    EXPECT_EQ(run("tags delete Affiches").status, 0);
    EXPECT_EQ(run("tags").output, "Titres — 2 familles\n    Essai 9\n    Essai Plain\n");
    EXPECT_THAT(families("--selection tag:Titres"), ElementsAre("Essai 9", "Essai Plain"));

    // A tag outlives the fonts; names of families that are gone can still be taken away.
    fs::remove(fonts() / "family-9.ttf");
    EXPECT_EQ(run("index").status, 0);
    EXPECT_THAT(families("--tag Titres"), ElementsAre("Essai Plain"));
    EXPECT_EQ(run("tags add Autre 'Essai 9'").status, 1);
    EXPECT_THAT(runJson("tags").at(0).at("families"), ElementsAre("Essai 9", "Essai Plain"));
    offer("family-9.ttf");
    EXPECT_THAT(families("--tag Titres"), ElementsAre("Essai 9", "Essai Plain"));
    fs::remove(fonts() / "family-9.ttf");
    EXPECT_EQ(run("tags remove Titres 'Essai 9'").status, 0);
    EXPECT_THAT(runJson("tags").at(0).at("families"), ElementsAre("Essai Plain"));

    // Where case is all that tells two families apart, it counts.
    offerAll({"family-9.ttf", "family-9-capitals.ttf"});
    expect({{"tags add Deux 'essai 9'", 1, "Plusieurs familles s’appellent « essai 9 » à la casse près"}});
    EXPECT_EQ(runJson("tags add Deux 'ESSAI 9'").at(0).at("families"), json{"ESSAI 9"});
}

TEST_F(StateCommandsTest, KeepsCollectionsFavoritesAndRecents)
{
    offerAll({"plain.ttf", "variable.ttf", "family-9.ttf", "family-10.ttf"});
    put("Polices/italic.ttf", "italic.ttf");
    run("folders add " + inHome("Polices"));
    EXPECT_THAT(families("--selection folder:" + inHome("Polices/")), ElementsAre("Essai Italic"));

    const std::string first = id("collections create Affiches");
    const std::string second = id("collections create Affiches");
    EXPECT_EQ(run("collections rename " + second + " ' Livres '").status, 0);
    EXPECT_EQ(run("collections add Livres 'essai plain' 'Essai 9'").status, 0);
    EXPECT_EQ(run("collections add Livres 'Essai 9'").status, 0);
    EXPECT_EQ(runJson("collections remove " + second + " 'ESSAI 9' Personne"),
              (json{{{"id", first}, {"name", "Affiches"}, {"families", json::array()}},
                    {{"id", second}, {"name", "Livres"}, {"families", {"Essai Plain"}}}}));
    EXPECT_THAT(families("--selection collection:Livres"), ElementsAre("Essai Plain"));
    EXPECT_EQ(families("--selection collection:" + second), families("--selection collection:Livres"));
    EXPECT_EQ(run("collections delete Affiches").status, 0);
    EXPECT_EQ(run("collections").output, "Livres  [" + second + "] — 1 famille\n    Essai Plain\n");

    const std::string smart = id("smart save Larges --class display --search 'essai 1' --tag=-x");
    EXPECT_EQ(runJson("smart").at(0).at("summary"), "recherche « essai 1 » · Display · tags : -x");
    EXPECT_EQ(run("smart update Larges --no-italic --search 'essai 1'").status, 0);
    EXPECT_EQ(run("smart rename Larges Dix").status, 0);
    const json saved = runJson("smart").at(0);
    EXPECT_EQ(saved.at("id"), smart);
    EXPECT_EQ(saved.at("name"), "Dix");
    EXPECT_EQ(saved.at("filters").size(), 12U);
    EXPECT_EQ(saved.at("filters").at("hideItalic"), true);
    EXPECT_THAT(families("--selection smart:Dix"), ElementsAre("Essai 10"));
    EXPECT_EQ(families("--selection smart:" + smart), families("--selection smart:Dix"));
    EXPECT_THAT(runJson("smart delete Dix"), IsEmpty());

    EXPECT_EQ(runJson("favorites add 'ESSAI VARIABLE' 'Essai 9' 'Essai 9'"), (json{"Essai 9", "Essai Variable"}));
    EXPECT_EQ(runJson("favorites add 'Essai 9'").size(), 2U);
    EXPECT_EQ(run("favorites remove 'essai 9' Personne").status, 0);
    EXPECT_EQ(run("favorites").output, "Essai Variable\n");
    EXPECT_THAT(families("--selection favorites"), ElementsAre("Essai Variable"));

    EXPECT_EQ(run("recents add 'Essai 9' 'essai variable' 'Essai 9'").status, 0);
    EXPECT_EQ(runJson("recents add 'Essai 10'"), (json{"Essai 10", "Essai Variable", "Essai 9"}));
    EXPECT_EQ(runJson("recents add 'Essai 9'"), (json{"Essai 9", "Essai 10", "Essai Variable"}));
    EXPECT_THAT(families("--selection recents --no-italic"), ElementsAre("Essai 9", "Essai 10", "Essai Variable"));

    offer("two-a.ttf");
    offer("two-b.ttf");
    EXPECT_THAT(families("--selection duplicates"), ElementsAre("Essai Double"));
}

TEST_F(StateCommandsTest, SaysSoWhenTheDatabaseTakesNothing)
{
    offerAll({"plain.ttf"});
    const std::string collection = id("collections create Livres");
    sqlite3 *connection = nullptr;
    ASSERT_EQ(sqlite3_open(database().c_str(), &connection), SQLITE_OK);
    for (const char *table : {"tags", "favorites", "recents", "collections", "collection_items", "smart_collections"}) {
        const std::string sql = "CREATE TRIGGER refuse_" + std::string(table) + " BEFORE INSERT ON " + table +
                                " BEGIN SELECT RAISE(ABORT, 'non'); END;";
        ASSERT_EQ(sqlite3_exec(connection, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
    }
    sqlite3_close(connection);
    expect({{"tags add x 'Essai Plain'", 1, "Écriture impossible"},
            {"favorites add 'Essai Plain'", 1, "Écriture impossible"},
            {"recents add 'Essai Plain'", 1, "Écriture impossible"},
            {"collections create x", 1, "Écriture impossible"},
            {"collections add Livres 'Essai Plain'", 1, "Écriture impossible"},
            {"smart save x --variable", 1, "Écriture impossible"}});
    writeFile(m_home / "b.json", R"({"format": "kerlune-backup", "version": 1, "tags": {"A": ["b"]}})");
    expect({{"restore " + inHome("b.json"), 1, "Écriture impossible : non"}});

    writeFile(database(), "this is no database");
    fs::remove(database().string() + "-wal");
    for (const char *command : {"families", "tags", "collections", "smart", "favorites", "recents", "backup -"})
        expect({{command, 1, "file is not a database"}, {command, 1, "Il n’a pas été modifié"}});
}

TEST_F(StateCommandsTest, BacksUpAndRestores)
{
    offerAll({"plain.ttf", "variable.ttf", "family-9.ttf"});
    run("tags add Été 'Essai Plain' 'Essai 9'");
    run("tags add Titres 'Essai 9'");
    run("collections create Livres");
    run("collections add Livres 'Essai 9'");
    run("smart save Gras --weight 600-900 --class sans");
    run("favorites add 'Essai Variable'");
    run("recents add 'Essai Plain' 'Essai 9'");
    const json counts{{"tags", 2}, {"collections", 1}, {"smartCollections", 1}, {"favorites", 1}, {"recents", 2}};
    EXPECT_EQ(runJson("backup " + inHome("a.json")), counts);
    const std::string backup = readFile(m_home / "a.json");
    const Result printed = run("backup -");
    EXPECT_EQ(printed.output, backup);
    EXPECT_THAT(printed.messages, HasSubstr("2 tags, 1 collection, 1 collection intelligente, 1 favori, 2 familles"));
    EXPECT_EQ(run("backup " + inHome("a.json")).status, 0); // a backup may be replaced
    const std::vector<json> before{runJson("tags"), runJson("collections"), runJson("smart"), runJson("favorites"),
                                   runJson("recents")};

    writeFile(m_home / "mine.json", "{}");
    expect({{"backup " + inHome("mine.json"), 1, "n’est pas une sauvegarde de Kerlune ; il n’a pas été modifié"},
            {"backup " + inHome("absent/b.json"), 1, "n’existe pas"},
            {"backup", 2, "Donnez un fichier"},
            {"backup - --json", 2, "sortie standard"}});
    EXPECT_EQ(readFile(m_home / "mine.json"), "{}");

    setenv("XDG_DATA_HOME", (m_home / "elsewhere").c_str(), 1);
    EXPECT_EQ(runJson("restore " + inHome("a.json")), counts);
    EXPECT_EQ(run("backup " + inHome("b.json")).status, 0);
    EXPECT_EQ(run("restore -", {}, inHome("a.json")).status, 0);
    EXPECT_EQ(run("backup " + inHome("c.json")).status, 0);
    const std::vector<std::pair<std::string, std::string>> wrong{
        {"", "ce n’est pas du JSON"},
        {backup.substr(0, backup.size() / 2), "ce n’est pas du JSON"},
        {R"({"format": "kerlune-backup", "version": 1, "tags": {"A": ["b"]}, "recents": 1})", "recents"},
    };
    for (const auto &[bytes, message] : wrong) {
        writeFile(m_home / "wrong.json", bytes);
        expect({{"restore " + inHome("wrong.json"), 1, message}});
        EXPECT_THAT(run("restore -", {}, inHome("wrong.json")).messages, HasSubstr(message));
    }
    expect({{"restore " + inHome("absent.json"), 1, "fichier introuvable"},
            {"restore " + m_home.path().string(), 1, "pas un fichier"}});
    EXPECT_EQ(run("backup " + inHome("d.json")).status, 0);
    for (const char *name : {"b.json", "c.json", "d.json"})
        EXPECT_EQ(readFile(m_home / name), backup) << name;
    EXPECT_EQ((std::vector<json>{runJson("tags"), runJson("collections"), runJson("smart"), runJson("favorites"),
                                 runJson("recents")}),
              before);
}

// What another version of the program may have saved.
TEST_F(StateCommandsTest, NamesAndDeletesSmartCollectionsThatItCannotRead)
{
    writeFile(m_home / "b.json", R"({"format": "kerlune-backup", "version": 1, "smartCollections": [
        {"id": "NEW", "name": "Futur", "created": "2026-01-01T00:00:00Z", "filters": {"classes": [99]}}]})");
    EXPECT_EQ(run("restore " + inHome("b.json")).status, 0);
    const Result list = run("smart --json");
    EXPECT_EQ(json::parse(list.output), json::array());
    EXPECT_THAT(list.messages, HasSubstr("1 collection intelligente ne peut pas être lue : NEW"));
    expect({{"smart rename Futur x", 1, "ne peuvent pas être lus"},
            {"smart update NEW --variable", 1, "ne peuvent pas être lus"},
            {"families --selection smart:Futur", 1, "ne peuvent pas être lus"},
            {"smart delete Futur", 0, ""}});
    EXPECT_EQ(run("smart").messages, "");
}

TEST_F(StateCommandsTest, LosesNothingOfWhatProcessesDoAtTheSameTime)
{
    offerAll({"plain.ttf", "family-9.ttf"});
    std::vector<pid_t> children;
    for (int i = 0; i < 6; ++i) {
        children.push_back(start({"tags", "add", "T" + std::to_string(i), i % 2 == 0 ? "Essai Plain" : "Essai 9"}));
        children.push_back(start({"collections", "create", "C" + std::to_string(i)}));
    }
    children.push_back(start({"index"}));
    children.push_back(start({"families"}));
    expectDone(children);
    EXPECT_EQ(runJson("tags").size(), 6U);
    EXPECT_EQ(runJson("collections").size(), 6U);
}

TEST_F(StateCommandsTest, KeepsWhatWasReportedDoneWhenKilledAtAnyMoment)
{
    offerAll({"plain.ttf"});
    const fs::path done = m_home / "done";
    for (int round = 0; round < 20; ++round) {
        const pid_t shell = fork();
        if (shell == 0) {
            setpgid(0, 0);
            const std::string loop = "i=0; while i=$((i+1)); do " KERLUNE_PROGRAM " tags add T" +
                                     std::to_string(round) + ".$i 'Essai Plain' 2>/dev/null && echo T" +
                                     std::to_string(round) + ".$i >>'" + done.string() + "'; done";
            execl("/bin/sh", "sh", "-c", loop.c_str(), nullptr);
            _exit(127);
        }
        setpgid(shell, shell);
        const std::size_t before = readFile(done).size();
        while (readFile(done).size() == before && waitpid(shell, nullptr, WNOHANG) == 0)
            std::this_thread::sleep_for(1ms);
        std::this_thread::sleep_for(std::chrono::microseconds(1'700 * round));
        kill(-shell, SIGKILL); // the loop and the command that it runs
        waitpid(shell, nullptr, 0);
    }
    std::set<std::string> tags;
    for (const json &tag : runJson("tags"))
        tags.insert(tag.at("name"));
    std::ifstream lines(done);
    std::size_t count = 0;
    for (std::string line; std::getline(lines, line); ++count)
        EXPECT_TRUE(tags.contains(line)) << line;
    EXPECT_GE(count, 20U); // every round wrote something
}

} // namespace
} // namespace kerlune
