#include "Bridge/ProcessRunner.h"

#include "Events.h"
#include "TempFolder.h"
#include "Testing.h"

#include <QCoroTask>
#include <QDeadlineTimer>

#include <csignal>
#include <cstdlib>
#include <limits>
#include <memory>

namespace kerlune {
namespace {

constexpr double kLong = 60; // seconds; no test waits as long

class ProcessRunnerTest : public testing::Test {
protected:
    ScriptOutcome shell(const std::string &script, double timeout = kLong,
                        const ProcessRunner::Environment &environment = {})
    {
        return QCoro::waitFor(
            m_runner->run("/bin/sh", {"-c", script, "sh", m_home.path().string()}, environment, timeout));
    }
    // A process that wrote its number there.
    pid_t process(const std::string &file) const
    {
        EXPECT_TRUE(waitUntil([&] { return readFile(m_home / file).ends_with('\n'); }));
        return static_cast<pid_t>(std::stol(readFile(m_home / file)));
    }
    static bool isGone(pid_t process)
    {
        return waitUntil([process] { return kill(process, 0) != 0; });
    }

    TempFolder m_home;
    std::unique_ptr<ProcessRunner> m_runner = std::make_unique<ProcessRunner>(50ms);
};

TEST_F(ProcessRunnerTest, TakesTheLastProtocolLineElseTheEndOfTheErrors)
{
    const std::string nothing = "Le script Resolve n'a rien renvoyé.";
    const auto repeated = [](const std::string &text, int times) {
        std::string all;
        for (int i = 0; i < times; ++i)
            all += text;
        return all;
    };
    const std::vector<std::pair<std::string, ScriptOutcome>> cases{
        {R"(printf 'progress\nOK|2|Arial\ndone\n')", ScriptSuccess{"OK|2|Arial"}},
        {R"(printf 'OK|1\n\nERR|x\n\n'; exit 4)", ScriptSuccess{"ERR|x"}},
        {R"(printf 'ERR|x\n OK|1\nnot OK|2')", ScriptSuccess{"ERR|x"}},
        {"printf 'OK|'", ScriptSuccess{"OK|"}},
        {R"(printf 'it was OK|1\nreally')", ScriptSuccess{"it was OK|1\nreally"}},
        {R"(printf 'OK|1\n\377')", ScriptFailure{0, nothing}}, // no UTF-8
        {"exit 1", ScriptFailure{1, nothing}},
        {R"(echo progress; printf ' \n\t' >&2; exit 3)", ScriptFailure{3, nothing}},
        {R"(printf ' \n no luck \n' >&2; exit 2)", ScriptFailure{2, "no luck"}},
        {"kill -9 $$", ScriptFailure{9, nothing}},
        {"cat; echo 'OK|0'", ScriptSuccess{"OK|0"}}, // there is nothing to read
        {"printf 'x%.0s' $(seq 1000) >&2; exit 1", ScriptFailure{1, repeated("x", 300)}},
        {"printf 'a日%.0s' $(seq 1000) >&2; exit 1", ScriptFailure{1, repeated("a日", 150)}},
    };
    for (const auto &[script, outcome] : cases)
        EXPECT_EQ(shell(script), outcome) << script;
}

TEST_F(ProcessRunnerTest, ReadsBothPipesWhileTheChildRuns)
{
    EXPECT_EQ(shell("for i in 1 2 3 4; do head -c 1000000 /dev/zero | tr '\\0' x; echo; "
                    "head -c 1000000 /dev/zero | tr '\\0' y >&2; done; echo 'OK|7'"),
              ScriptOutcome(ScriptSuccess{"OK|7"}));
}

TEST_F(ProcessRunnerTest, OfEndlessOutputTheEndCounts)
{
    EXPECT_EQ(shell("yes 'OK|1 é' | head -c 40000000; printf '\\nOK|2\\n'"), ScriptOutcome(ScriptSuccess{"OK|2"}));
}

TEST_F(ProcessRunnerTest, GivenVariablesWinOverThoseOfThisProcess)
{
    setenv("KERLUNE_A", "own", 1);
    setenv("KERLUNE_B", "own", 1);
    const std::string script = R"(printf '%s' "OK|$KERLUNE_A $KERLUNE_B $KERLUNE_C")";
    EXPECT_EQ(shell(script), ScriptOutcome(ScriptSuccess{"OK|own own "}));
    EXPECT_EQ(shell(script, kLong, {{"KERLUNE_B", "$(given)"}, {"KERLUNE_C", "é"}}),
              ScriptOutcome(ScriptSuccess{"OK|own $(given) é"}));
    unsetenv("KERLUNE_A");
    unsetenv("KERLUNE_B");
}

TEST_F(ProcessRunnerTest, AProgramThatCannotBeLaunchedFails)
{
    for (const fs::path &program : {m_home / "nothing", m_home.path()}) {
        const auto outcome = std::get<ScriptFailure>(QCoro::waitFor(m_runner->run(program, {}, {}, kLong)));
        EXPECT_EQ(outcome.code, -1);
        EXPECT_THAT(outcome.message, StartsWith("Lancement impossible : "));
        EXPECT_GT(outcome.message.size(), std::string("Lancement impossible : ").size());
    }
}

TEST_F(ProcessRunnerTest, AChildThatIsLateIsEndedEvenIfItWillNot)
{
    EXPECT_EQ(shell("echo $$ >$1/polite; exec sleep 60", 1.25),
              ScriptOutcome(ScriptFailure{-2, "Resolve n'a pas répondu en 1 s."}));
    EXPECT_TRUE(isGone(process("polite")));
    EXPECT_EQ(shell("trap '' TERM; echo $$ >$1/stubborn; echo 'OK|1'; while :; do sleep 0.1; done", 0.5),
              ScriptOutcome(ScriptFailure{-2, "Resolve n'a pas répondu en 0 s."}));
    EXPECT_TRUE(isGone(process("stubborn")));
    for (const double none : {-1.0, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(std::get<ScriptFailure>(shell("exec sleep 60", none)).code, -2);
}

TEST_F(ProcessRunnerTest, DoesNotWaitForWhatTheChildHasStarted)
{
    const QDeadlineTimer limit(30s);
    EXPECT_EQ(shell("sleep 60 & echo $! >$1/grandchild; echo 'OK|1'"), ScriptOutcome(ScriptSuccess{"OK|1"}));
    EXPECT_FALSE(limit.hasExpired());
    kill(process("grandchild"), SIGKILL);
}

TEST_F(ProcessRunnerTest, NoChildOutlivesTheRunner)
{
    const auto polite = m_runner->run("/bin/sh", {"-c", "echo $$ >$1; exec sleep 60", "sh", m_home / "polite"}, {}, 60);
    const auto stubborn = m_runner->run(
        "/bin/sh", {"-c", "trap '' TERM; echo $$ >$1; while :; do sleep 0.1; done", "sh", m_home / "stubborn"}, {}, 60);
    const pid_t first = process("polite");
    const pid_t second = process("stubborn");
    m_runner.reset();
    EXPECT_NE(kill(first, 0), 0);
    EXPECT_NE(kill(second, 0), 0);
    finishBackgroundWork();
}

TEST_F(ProcessRunnerTest, ChildrenRunSideBySide)
{
    auto waiting = m_runner->run(
        "/bin/sh", {"-c", "until [ -e $1 ]; do sleep 0.01; done; echo 'OK|1'", "sh", m_home / "sign"}, {}, kLong);
    EXPECT_EQ(shell("touch $1/sign; echo 'OK|2'"), ScriptOutcome(ScriptSuccess{"OK|2"}));
    EXPECT_EQ(QCoro::waitFor(std::move(waiting)), ScriptOutcome(ScriptSuccess{"OK|1"}));
}

} // namespace
} // namespace kerlune
