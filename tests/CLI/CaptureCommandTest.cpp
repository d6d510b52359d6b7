#include "CommandLineFixture.h"

#include <QImage>

namespace kerlune {
namespace {

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
    ASSERT_EQ(run("capture --size 900x600 --scale 2 --output " + inHome("large.png")).status, 0);
    EXPECT_EQ(picture("a.png").size(), QSize(1024, 640));
    EXPECT_EQ(picture("large.png").size(), QSize(1800, 1200));
    EXPECT_EQ(readFile(m_home / "a.png"), readFile(m_home / "b.png"));
    ASSERT_EQ(run("capture --size 1024x640 --theme light --output " + inHome("c.png")).status, 0);
    EXPECT_NE(readFile(m_home / "c.png"), readFile(m_home / "a.png"));
    EXPECT_FALSE(fs::exists(m_home / "config")) << "the user's settings must stay as they are";
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

TEST_F(CaptureCommandTest, NamesWhatMayBeAskedFor)
{
    expect({
        {"capture", 2, "--output"},
        {"capture --output x.png --view mosaic", 2, "grid, list, waterfall, compare"},
        {"capture --output x.png --panel none", 2, "information, styles, axes, features, glyphs"},
        {"capture --output x.png --theme blue", 2, "light, dark"},
        {"capture --output x.png --language de", 2, "fr, en"},
        {"capture --output x.png --size 100x", 2, "LARGEURxHAUTEUR"},
        {"capture --output x.png --scale 9", 2, "1 à 4"},
        {"capture --output x.png --preview-size huge", 2, "4 à 2000"},
        {"capture --output /nonexistent/x.png", 1, "/nonexistent/x.png"},
        {"capture --output x.png --family Rien", 1, "Rien"},
        {"", 2, "écran"}, // the window needs one
        {"open", 2, "écran"},
    });
}

} // namespace
} // namespace kerlune
