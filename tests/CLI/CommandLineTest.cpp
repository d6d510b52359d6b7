#include "CommandLineFixture.h"
#include "Model/FontRecord.h"
#include "Store/FontIndexStore.h"

#include <sys/stat.h>
#include <sys/wait.h>

#include <chrono>
#include <csignal>
#include <thread>

namespace kerlune {
namespace {

using testing::MatchesRegex;

TEST_F(CommandLineTest, IndexesAndListsFaces)
{
    offerAll({"plain.ttf", "variable.ttf", "family-9.ttf", "family-10.ttf", "names-shift-jis.ttf"});
    const Result indexed = run("index");
    EXPECT_THAT(indexed.output, MatchesRegex("8 graisses dans 5 familles, lues en [0-9]+,[0-9] s\n"));
    EXPECT_EQ(indexed.messages, ""); // no progress bar where nobody looks

    const json records = faces();
    ASSERT_EQ(records.size(), 8U);
    for (const json &object : records) {
        EXPECT_EQ(object.size(), 25U);
        const auto record = decodeRecord(object);
        ASSERT_TRUE(record) << object;
        EXPECT_TRUE(fs::exists(record->filePath));
    }
    const Result text = run("faces");
    EXPECT_LT(text.output.find("Essai 9 — "), text.output.find("Essai 10 — "));
    EXPECT_THAT(text.output, HasSubstr("Essai Variable — Display, 4 graisses\n"));
    EXPECT_THAT(text.output, HasSubstr("    Condensed Light  [EssaiVariable-CondensedLight]  "));
    EXPECT_THAT(text.output, HasSubstr("フォント"));

    EXPECT_EQ(run("index").status, 0);
    EXPECT_EQ(faces(), records); // a second run gives the same
}

TEST_F(CommandLineTest, NamesWhatItLeftOut)
{
    offer("plain.ttf");
    offer("names-hidden.ttf");
    const Result text = run("index");
    EXPECT_EQ(text.status, 0);
    EXPECT_THAT(text.messages, HasSubstr("1 police écartée :\n"));
    EXPECT_THAT(text.messages, HasSubstr("names-hidden.ttf : police masquée du système\n"));

    const json summary = json::parse(run("index --json").output);
    EXPECT_EQ(summary.at("faces"), 1);
    EXPECT_EQ(summary.at("families"), 1);
    EXPECT_TRUE(summary.at("seconds").is_number_float());
    EXPECT_EQ(summary.at("skipped").size(), 1U);
    EXPECT_EQ(summary.at("skipped").at(0).at("reason"), "police masquée du système");
}

TEST_F(CommandLineTest, KeepsTheIndexOfAMachineThatLostItsFonts)
{
    offer("plain.ttf");
    run("index");
    fs::remove_all(fonts());
    expect({{"index", 1, "Aucune police : fontconfig n’en propose aucune"}});
    EXPECT_EQ(faces().size(), 1U);

    fs::create_directories(fonts());
    offer("names-hidden.ttf");
    const Result hidden = run("index --json");
    EXPECT_EQ(hidden.status, 1);
    EXPECT_THAT(hidden.messages, HasSubstr("toutes ont été écartées. L’index précédent est conservé."));
    EXPECT_EQ(json::parse(hidden.output).at("skipped").size(), 1U);
    EXPECT_EQ(faces().size(), 1U);
}

// What fontconfig itself would wait for without end.
TEST_F(CommandLineTest, DoesNotWaitForAPipeAmongTheFonts)
{
    offer("plain.ttf");
    run("index");
    ASSERT_EQ(mkfifo((fonts() / "pipe.ttf").c_str(), 0600), 0);
    expect({{"index", 1, "pipe.ttf : tube sur lequel"}});
    EXPECT_EQ(faces().size(), 1U);
}

TEST_F(CommandLineTest, SendsNoControlCharactersOfAFontToTheTerminal)
{
    offerAll({"names-control.ttf"});
    EXPECT_THAT(run("faces").output, HasSubstr("Essai\uFFFD]0;x\uFFFDFin"));
    EXPECT_EQ(faces().at(0).at("family"), "Essai\x1B]0;x\aFin");
}

TEST_F(CommandLineTest, SaysWhyTheIndexCannotBeOpened)
{
    offer("plain.ttf");
    writeFile(database(), "this is no database, but somebody's own file");
    for (const char *command : {"index", "faces", "faces --json"})
        expect({{command, 1, "kerlune: Ouverture de l'index impossible : file is not a database"},
                {command, 1, "Il n’a pas été modifié"}});
    EXPECT_EQ(readFile(database()), "this is no database, but somebody's own file");

    setenv("XDG_DATA_HOME", database().c_str(), 1); // a file where the folder should be: nothing can be made there
    expect({{"index", 1, "Ouverture de l'index impossible : unable to open database file"},
            {"index", 1, "que vous pouvez y écrire"}});
}

TEST_F(CommandLineTest, DoesNotShowHalfOfADamagedIndex)
{
    for (int i = 0; i < 60; ++i)
        fs::copy_file(testFont("family-class-0" + std::to_string(i % 9 + 1) + ".ttf"),
                      fonts() / ("copy-" + std::to_string(i) + ".ttf"));
    offer("plain.ttf");
    ASSERT_EQ(run("index").status, 0);
    std::string bytes = readFile(database());
    const std::size_t row = bytes.find("Fonderie Essai");
    ASSERT_NE(row, std::string::npos);
    bytes.replace(row / 4096 * 4096, 64, std::string(64, '\xFF')); // the head of the page that holds the record
    writeFile(database(), bytes);
    expect({{"faces --json", 1, "L’index ne peut pas être lu"}});
}

TEST_F(CommandLineTest, FailsWhenItsOutputIsLost)
{
    offer("plain.ttf");
    run("index");
    const Result result = run("faces --json", "/dev/full");
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.messages, HasSubstr("Écriture de la sortie impossible"));
}

TEST_F(CommandLineTest, RefusesWrongUsage)
{
    expect({{"", 2, "Il manque une commande"},
            {"indexe", 2, "« indexe »"},
            {"index --jsn", 2, "« --jsn »"},
            {"faces extra", 2, "« extra »"},
            {"index faces", 2, "« faces »"}});
    EXPECT_FALSE(fs::exists(database()));
    EXPECT_EQ(run("--help").status, 0);
    EXPECT_THAT(run("index --help").output, HasSubstr("--json"));
    EXPECT_THAT(run("--version").output, MatchesRegex("kerlune [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

TEST_F(CommandLineTest, LeavesTheIndexWholeWhenKilledAtAnyMoment)
{
    offerAll({"plain.ttf", "variable.ttf", "collection.ttc", "italic.ttf"});
    const json before = faces();
    for (int moment = 0; moment < 40; ++moment) {
        const pid_t child = start({"index"});
        std::this_thread::sleep_for(std::chrono::microseconds(700 * moment));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        ASSERT_EQ(faces(), before) << moment;
    }
}

// Several programs that meet a library for the first time at the same moment.
TEST_F(CommandLineTest, SharesTheIndexWithOtherProcesses)
{
    offer("plain.ttf");
    std::vector<pid_t> children;
    for (int i = 0; i < 8; ++i)
        children.push_back(start({"index"}));
    expectDone(children);
    EXPECT_EQ(faces().size(), 1U);
}

} // namespace
} // namespace kerlune
