#include "Bridge/MissingFontsWatcher.h"

#include "Events.h"
#include "MadeFrontApplication.h"
#include "MadeScriptEngine.h"
#include "Testing.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <atomic>
#include <mutex>

namespace kerlune {
namespace {

struct Found {
    std::vector<UsedFont> fonts;
    std::vector<std::string> documents;
    HostApp host;
};

class MissingFontsWatcherTest : public testing::Test {
protected:
    ScriptEngine::Result answer(const std::string &source)
    {
        const std::scoped_lock lock(m_mutex);
        if (source.find("get name of every document") != std::string::npos)
            return ScriptEngine::Descriptor{{}, m_documents};
        if (!m_isAnswering)
            return ScriptEngine::Error{-1712, "AppleEvent timed out."};
        return ScriptEngine::Descriptor{m_fonts};
    }

    void open(std::vector<std::optional<std::string>> documents, bool isAnswering = true)
    {
        const std::scoped_lock lock(m_mutex);
        m_documents = std::move(documents);
        m_isAnswering = isAnswering;
    }

    // Until so many scripts have been run and answered.
    void waitForScripts(std::size_t count)
    {
        ASSERT_TRUE(waitUntil([&] { return m_engine.sources().size() >= count; }));
    }

    void start()
    {
        m_watcher.start(
            [this](std::vector<UsedFont> fonts, std::vector<std::string> documents, HostApp host) -> QCoro::Task<> {
                m_found.push_back({std::move(fonts), std::move(documents), host});
                co_return;
            });
    }

    std::mutex m_mutex;
    std::vector<std::optional<std::string>> m_documents;
    std::string m_fonts = "Inter-Bold\tInter\tBold\nLost\t\t";
    bool m_isAnswering = true;
    bool m_isEnabled = true;
    std::vector<Found> m_found;
    MadeScriptEngine m_engine{[this](const std::string &source) { return answer(source); }};
    MadeFrontApplication m_front;
    HostBridge m_bridge{m_engine, {.scripts = std::string(KERLUNE_RESOURCES) + "/Bridge", .resolve = {}}, {}};
    MissingFontsWatcher m_watcher{m_bridge, m_front, [this] { return m_isEnabled; }, 2ms};
};

TEST_F(MissingFontsWatcherTest, LooksAtEachDocumentOnce)
{
    start();
    open({"b.indd", "a.indd"});
    m_front.bring("InDesign.exe");
    waitForScripts(5);
    ASSERT_THAT(m_found, SizeIs(1));
    EXPECT_THAT(m_found[0].fonts, ElementsAre(UsedFont{"Inter-Bold", "Inter", "Bold"}, UsedFont{"Lost"}));
    EXPECT_THAT(m_found[0].documents, ElementsAre("a.indd", "b.indd"));
    EXPECT_EQ(m_found[0].host, HostApp::indesign);
    const std::vector<std::string> scripts = m_engine.sources();
    EXPECT_EQ(scripts[0], "with timeout of 3 seconds\n    tell application id \"com.adobe.InDesign\" to get name of "
                          "every document\nend timeout");
    EXPECT_THAT(scripts[1], StartsWith("with timeout of 60 seconds\n    tell application id \"com.adobe.InDesign\"\n"));
    EXPECT_THAT(scripts[1], EndsWith("\n    end tell\nend timeout"));
    EXPECT_THAT(scripts[1], HasSubstr(R"(\"a.indd\\nb.indd\")"));
    EXPECT_EQ(scripts[2], scripts[0]);

    open({});
    letPass(20ms);
    open({"a.indd", "c.indd"}); // one has been closed and opened again
    EXPECT_TRUE(waitUntil([&] { return m_found.size() == 2; }));
    letPass(20ms);
    ASSERT_THAT(m_found, SizeIs(2));
    EXPECT_THAT(m_found[1].documents, ElementsAre("c.indd"));
}

TEST_F(MissingFontsWatcherTest, AsksOnlyTheHostInFrontAndOnlyWhileItIsWanted)
{
    start();
    open({"a.psd"});
    m_front.bring("Nautilus");
    letPass(20ms);
    EXPECT_THAT(m_engine.sources(), IsEmpty());
    m_front.bring("photoshop.exe");
    waitForScripts(3);
    m_front.bring("");
    letPass(20ms); // what was under way ends
    const std::size_t asked = m_engine.sources().size();
    letPass(30ms);
    EXPECT_THAT(m_engine.sources(), SizeIs(asked));

    m_isEnabled = false;
    m_front.bring("Illustrator.exe");
    letPass(20ms);
    EXPECT_THAT(m_engine.sources(), SizeIs(asked));
    m_isEnabled = true; // the loop has gone on
    waitForScripts(asked + 2);
    EXPECT_EQ(m_found.back().host, HostApp::illustrator);

    m_front.bring("resolve"); // has no documents to tell of
    letPass(20ms);
    EXPECT_THAT(m_found, SizeIs(2));
}

TEST_F(MissingFontsWatcherTest, AsksAgainWhereThereWasNoAnswer)
{
    start();
    open({"a.psd"}, false);
    m_front.bring("photoshop.exe");
    waitForScripts(3);
    EXPECT_THAT(m_found, IsEmpty());
    open({"a.psd"});
    EXPECT_TRUE(waitUntil([&] { return m_found.size() == 1; }));
}

TEST(ParseUsedFonts, ReadsALineForEachFont)
{
    EXPECT_THAT(parseUsedFonts("Inter-Bold\tInter\tBold\r\nInter-Bold\tInter\tBold\n\tInter\t\rAlone\n\n\t\tBold\n"
                               "a\tb\tc\td"),
                ElementsAre(UsedFont{"Inter-Bold", "Inter", "Bold"}, UsedFont{"", "Inter"}, UsedFont{"Alone"},
                            UsedFont{"a", "b", "c"}));
    EXPECT_THAT(parseUsedFonts(""), IsEmpty());
}

} // namespace
} // namespace kerlune
