#include "Bridge/AppleEventRunner.h"

#include "Bridge/ResumeOnce.h"
#include "MadeScriptEngine.h"
#include "Platform/Linux/NoScriptEngine.h"
#include "Testing.h"

#include <QCoroTask>
#include <QThread>

#include <atomic>
#include <functional>
#include <thread>

namespace kerlune {
namespace {

using Descriptor = ScriptEngine::Descriptor;
using Error = ScriptEngine::Error;
using Returns = AppleEventRunner::Returns;

ScriptOutcome outcomeOf(const ScriptEngine::Result &result, Returns returns)
{
    MadeScriptEngine engine([&](const std::string &) { return result; });
    AppleEventRunner runner(engine);
    return QCoro::waitFor(runner.run("script", returns));
}

TEST(AppleEventRunner, GivesTheTextTheItemsOrTheReason)
{
    struct Case {
        ScriptEngine::Result result;
        Returns returns;
        ScriptOutcome outcome;
    };
    const std::vector<Case> cases{
        {Descriptor{"OK|1"}, Returns::Text, ScriptSuccess{"OK|1"}},
        {Descriptor{}, Returns::Text, ScriptSuccess{""}},
        {Descriptor{{}, {"a", "3", std::nullopt, "b"}}, Returns::List, ScriptSuccess{"a\n3\nb"}},
        {Descriptor{{}, {std::nullopt, "", "b"}}, Returns::List, ScriptSuccess{"\nb"}},
        {Descriptor{"no list"}, Returns::List, ScriptSuccess{""}},
        {Descriptor{"text", {"item"}}, Returns::Text, ScriptSuccess{"text"}},
        {ScriptEngine::NoScript{}, Returns::Text, ScriptFailure{-1, "Script AppleScript invalide."}},
        {Error{-1743, "Not permitted."}, Returns::List, ScriptFailure{-1743, "Not permitted."}},
        {Error{}, Returns::Text, ScriptFailure{-1, "Erreur inconnue"}},
    };
    for (const Case &one : cases)
        EXPECT_EQ(outcomeOf(one.result, one.returns), one.outcome);
}

TEST(AppleEventRunner, WhereThereAreNoScriptsNoHostRuns)
{
    NoScriptEngine engine;
    AppleEventRunner runner(engine);
    const ScriptOutcome outcome = QCoro::waitFor(runner.run("tell application id \"com.adobe.Photoshop\""));
    EXPECT_EQ(std::get<ScriptFailure>(outcome).code, -600);
}

TEST(AppleEventRunner, RunsOneScriptAtATimeInOrderOffTheMainThread)
{
    std::vector<std::string> ran;
    std::atomic<int> running = 0;
    int most = 0;
    bool isMainThread = false;
    MadeScriptEngine engine([&](const std::string &source) -> ScriptEngine::Result {
        most = std::max(most, ++running);
        isMainThread = isMainThread || QThread::currentThread() == QCoreApplication::instance()->thread();
        std::this_thread::yield();
        ran.push_back(source);
        --running;
        return Descriptor{source};
    });
    AppleEventRunner runner(engine);
    std::vector<std::string> sent;
    std::vector<QCoro::Task<ScriptOutcome>> tasks;
    for (int i = 0; i < 50; ++i) {
        sent.push_back(std::to_string(i));
        tasks.push_back(runner.run(sent.back()));
    }
    for (std::size_t i = tasks.size(); i-- > 0;) {
        const ScriptOutcome outcome = QCoro::waitFor(std::move(tasks[i]));
        EXPECT_EQ(outcome, ScriptOutcome(ScriptSuccess{sent[i]}));
    }
    EXPECT_EQ(ran, sent);
    EXPECT_EQ(most, 1);
    EXPECT_FALSE(isMainThread);
}

TEST(ResumeOnce, OnlyTheFirstOfManyOutcomesCounts)
{
    for (int round = 0; round < 200; ++round) {
        ResumeOnce caller;
        const QFuture<ScriptOutcome> outcome = caller.outcome();
        std::atomic<bool> isOpen = false;
        std::vector<std::thread> racers;
        for (int i = 0; i < 3; ++i) {
            racers.emplace_back([&, i] {
                while (!isOpen)
                    std::this_thread::yield();
                caller.resume(ScriptFailure{i, ""});
            });
        }
        isOpen = true;
        for (std::thread &racer : racers)
            racer.join();
        ASSERT_TRUE(outcome.isFinished());
        ASSERT_EQ(outcome.resultCount(), 1);
        const ScriptOutcome first = outcome.result();
        caller.resume(ScriptSuccess{"late"});
        ASSERT_EQ(outcome.result(), first);
    }
}

TEST(ResumeOnce, ACallerThatNothingResumesFails)
{
    QFuture<ScriptOutcome> outcome;
    {
        const ResumeOnce caller;
        outcome = caller.outcome();
        EXPECT_FALSE(outcome.isFinished());
    }
    EXPECT_EQ(outcome.result(), ScriptOutcome(ScriptFailure{-1, "Erreur inconnue"}));
}

} // namespace
} // namespace kerlune
