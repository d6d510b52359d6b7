#include "CommandLineFixture.h"

#include <QImage>
#include <gmock/gmock.h>

namespace kerlune {
namespace {

using testing::HasSubstr;

class CaptureCommandTest : public CommandLineTest {
protected:
    QImage picture(const std::string &name) const { return QImage(QString::fromStdString(m_home / name)); }
};

TEST_F(CaptureCommandTest, GivesTheSameBytesTwice)
{
    offer("plain.ttf");
    offer("italic.ttf");
    for (const std::string name : {"a.png", "b.png"}) {
        const Result result = run("capture --size 1024x640 --theme dark --output " + inHome(name));
        ASSERT_EQ(result.status, 0) << result.messages;
        EXPECT_EQ(result.messages, "");
    }
    EXPECT_EQ(picture("a.png").size(), QSize(1024, 640));
    EXPECT_EQ(readFile(m_home / "a.png"), readFile(m_home / "b.png"));
    ASSERT_EQ(run("capture --size 1024x640 --theme light --output " + inHome("c.png")).status, 0);
    EXPECT_NE(readFile(m_home / "c.png"), readFile(m_home / "a.png"));
    EXPECT_FALSE(std::filesystem::exists(m_home / "config")) << "the user's settings must stay as they are";
}

// What a panel reads from the font is there, and not what it says while it reads.
TEST_F(CaptureCommandTest, WaitsForWhatThePanelsRead)
{
    offer("variable.ttf");
    for (const std::string panel : {"information", "axes", "features", "glyphs", "similar"}) {
        for (const std::string name : {"a.png", "b.png"}) {
            const Result result =
                run("capture --family \"Essai Variable\" --panel " + panel + " --output " + inHome(name));
            ASSERT_EQ(result.status, 0) << panel << ": " << result.messages;
        }
        EXPECT_EQ(readFile(m_home / "a.png"), readFile(m_home / "b.png")) << panel;
    }
}

TEST_F(CaptureCommandTest, DrawsTheScaleThatIsAskedFor)
{
    offer("plain.ttf");
    ASSERT_EQ(run("capture --size 900x600 --scale 2 --output " + inHome("a.png")).status, 0);
    EXPECT_EQ(picture("a.png").size(), QSize(1800, 1200));
}

TEST_F(CaptureCommandTest, NamesWhatMayBeAskedFor)
{
    const std::tuple<const char *, int, const char *> cases[]{
        {"", 2, "--output"},
        {"--output x.png --view mosaic", 2, "grid, list, waterfall, compare"},
        {"--output x.png --panel none", 2, "information, styles, axes, features, glyphs"},
        {"--output x.png --theme blue", 2, "light, dark"},
        {"--output x.png --language de", 2, "fr, en"},
        {"--output x.png --size 100x", 2, "LARGEURxHAUTEUR"},
        {"--output x.png --scale 9", 2, "1 à 4"},
        {"--output x.png --preview-size huge", 2, "4 à 2000"},
        {"--output /nonexistent/x.png", 1, "/nonexistent/x.png"},
        {"--output x.png --family Rien", 1, "Rien"},
    };
    for (const auto &[arguments, status, message] : cases) {
        const Result result = run(std::string("capture ") + arguments);
        EXPECT_EQ(result.status, status) << arguments;
        EXPECT_THAT(result.messages, HasSubstr(message)) << arguments;
    }
}

TEST_F(CaptureCommandTest, SaysThatTheWindowNeedsADisplay)
{
    for (const char *arguments : {"", "open"}) {
        const Result result = run(arguments);
        EXPECT_EQ(result.status, 2);
        EXPECT_THAT(result.messages, HasSubstr("écran"));
    }
}

} // namespace
} // namespace kerlune
