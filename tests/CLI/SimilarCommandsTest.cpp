#include "CommandLineFixture.h"

#include <sqlite3.h>

#include <chrono>
#include <csignal>
#include <sstream>
#include <thread>

namespace kerlune {
namespace {

class SimilarCommandsTest : public CommandLineTest {
protected:
    std::vector<std::string> similar(const std::string &arguments) const
    {
        std::vector<std::string> families;
        for (const json &found : runJson("similar " + arguments))
            families.push_back(found.at("family"));
        return families;
    }

    // What the database answers to a question for one number.
    std::int64_t stored(const std::string &question) const
    {
        sqlite3 *opened = nullptr;
        std::int64_t number = -1;
        const auto take = [](void *target, int, char **values, char **) {
            *static_cast<std::int64_t *>(target) = std::stoll(values[0]);
            return 0;
        };
        EXPECT_EQ(sqlite3_open(database().c_str(), &opened), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(opened, question.c_str(), take, &number, nullptr), SQLITE_OK) << question;
        sqlite3_close(opened);
        return number;
    }
};

TEST_F(SimilarCommandsTest, PrintsTheNumbersOfAFingerprint)
{
    offer("fingerprint-four.ttf");
    offer("fingerprint-three.ttf");
    const std::vector<double> numbers = runJson("fingerprint EssaiEmpreinte-Regular");
    ASSERT_THAT(numbers, SizeIs(872));
    double squares = 0;
    for (const double number : numbers)
        squares += number * number;
    EXPECT_NEAR(squares, 1, 1e-4);
    std::istringstream lines(run("fingerprint EssaiEmpreinte-Regular").output);
    std::vector<double> printed;
    for (std::string line; std::getline(lines, line);)
        printed.push_back(std::stod(line));
    EXPECT_THAT(printed, testing::Pointwise(testing::DoubleNear(1e-7), numbers));

    expect({
        {"fingerprint", 2, "nom PostScript"},
        {"fingerprint EssaiAbsent", 1, "EssaiAbsent"},
        {"fingerprint EssaiEmpreinteTrois-Regular", 1, "n’a pas d’empreinte"},
        {"similar", 2, "nom PostScript"},
        {"similar EssaiAbsent", 1, "EssaiAbsent"},
        {"similar EssaiEmpreinteTrois-Regular", 1, "n’a pas d’empreinte"},
        {"similar EssaiEmpreinte-Regular --limit -1", 2, "--limit"},
    });
}

TEST_F(SimilarCommandsTest, ListsLookAlikesBestFirst)
{
    for (const char *font : {"plain.ttf", "fingerprint-four.ttf", "fingerprint-arabic.ttf", "mono-post.ttf"})
        offer(font);
    const json found = runJson("similar EssaiPlain-Regular --all-scripts");
    ASSERT_THAT(found, SizeIs(2));
    EXPECT_EQ(found[0].at("family"), "Essai Empreinte Arabe");
    EXPECT_EQ(found[0].at("postScriptName"), "EssaiEmpreinteArabe-Regular");
    EXPECT_GT(found[0].at("score"), found[1].at("score"));
    EXPECT_THAT(similar("EssaiPlain-Regular"), ElementsAre("Essai Empreinte"));
    EXPECT_THAT(similar("EssaiPlain-Regular --all-scripts --limit 1"), ElementsAre("Essai Empreinte Arabe"));
    EXPECT_THAT(similar("EssaiPlain-Regular --limit 0"), IsEmpty());
    const Result nothing = run("similar EssaiCourier-Regular");
    EXPECT_EQ(nothing.status, 0);
    EXPECT_THAT(nothing.messages, HasSubstr("Aucune correspondance trouvée."));

    fs::remove(fonts() / "fingerprint-four.ttf");
    EXPECT_THAT(similar("EssaiPlain-Regular"), IsEmpty());
    offer("i-sans.ttf");
    EXPECT_THAT(similar("EssaiPlain-Regular"), ElementsAre("Essai Alpha"));
}

TEST_F(SimilarCommandsTest, ComputesEachOnceWhateverEndsAProcess)
{
    offerAll({"plain.ttf", "fingerprint-wide.ttf", "fingerprint-four.ttf", "i-sans.ttf", "i-slab.ttf", "i-serif.ttf",
              "variable.ttf", "family-9.ttf", "family-10.ttf"});
    for (int delay = 5; delay <= 320; delay *= 2) { // milliseconds: before, while and after it writes
        const pid_t child = start({"similar", "EssaiPlain-Regular"});
        std::this_thread::sleep_for(std::chrono::milliseconds(delay));
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
    }
    std::vector<pid_t> children;
    for (int i = 0; i < 3; ++i)
        children.push_back(start({"similar", "EssaiPlain-Regular"}));
    expectDone(children);
    EXPECT_EQ(stored("SELECT COUNT(*) FROM fingerprints"), stored("SELECT COUNT(*) FROM fonts"));
    EXPECT_EQ(stored("SELECT COUNT(*) FROM fingerprints WHERE length(vector) != 3488"), 0);
}

} // namespace
} // namespace kerlune
