// Using fonts in other programs, from the window.

#include "MadeHotKeys.h"
#include "UI/Window/ApplyHotKey.h"
#include "UI/Window/ApplyNotice.h"
#include "UI/Window/MainWindow.h"
#include "UI/Window/TrayPicker.h"
#include "WindowHome.h"

#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

namespace kerlune {
namespace {

using namespace ApplyOutcome;

class ApplyTest : public WindowHome {
protected:
    ApplyTest()
    {
        offer({"plain.ttf", "italic.ttf"});
        m_program = openLoaded();
        m_program->preferences.autoActivateMissingFonts = false; // the only scripts are those that apply
    }
};

TEST_F(ApplyTest, TheToolbarAppliesTheSelectedFontWhereTheUserWas)
{
    MainWindow window(workspace());
    window.show();
    EXPECT_FALSE(child<QToolButton>(window, "applyButton").isEnabled()) << "nothing is selected";
    workspace().select({"Essai Italic"});
    m_program->front.bring("InDesign.exe");
    click(window, "applyButton");
    ASSERT_TRUE(waitFor([&] { return state().applyFeedback().has_value(); }));
    EXPECT_THAT(m_program->scripts.sources(), ElementsAre(HasSubstr("EssaiItalic-Regular")));
    const auto &text = child<QLabel>(window, "noticeText");
    EXPECT_EQ(text.text().toStdString(), "InDesign\u00A0: Police appliquée à 2 éléments.");

    // The one that was posted last is shown, and is what the button closes.
    state().setNotice({"Après"});
    EXPECT_EQ(text.text().toStdString(), "Après");
    click(window, "noticeClose");
    EXPECT_THAT(text.text().toStdString(), EndsWith("2 éléments."));
    click(window, "noticeClose");
    EXPECT_FALSE(text.isVisible());
}

TEST_F(ApplyTest, TheLiveTrialStepsThroughWhatIsInSight)
{
    MainWindow window(workspace());
    window.show();
    auto &shuffle = child<QAction>(window, "shuffle");
    const auto &bar = child<QWidget>(window, "shuffleBar");
    shuffle.trigger();
    EXPECT_FALSE(shuffle.isChecked() || bar.isVisible()) << "no host runs";
    m_program->front.bring("Photoshop.exe");
    shuffle.trigger();
    EXPECT_TRUE(shuffle.isChecked() && bar.isVisible());
    EXPECT_THAT(child<QLabel>(window, "shuffleText").text().toStdString(), HasSubstr("Photoshop"));

    for (const char *font : {"EssaiItalic-Regular", "EssaiPlain-Regular"}) {
        click(window, "shuffleNext");
        EXPECT_TRUE(waitFor([&] {
            const auto scripts = m_program->scripts.sources();
            return !scripts.empty() && scripts.back().find(font) != std::string::npos;
        }));
    }
    EXPECT_THAT(workspace().selectedFamilies.value(), ElementsAre("Essai Plain"));
    click(window, "shuffleStop");
    EXPECT_FALSE(state().shuffleActive() || bar.isVisible() || shuffle.isChecked());
}

TEST_F(ApplyTest, ThePickerAppliesItsFont)
{
    state().noteUsed("Essai Plain");
    m_program->front.bring("Illustrator.exe");
    TrayPicker picker(workspace());
    picker.popUp();
    click(picker, "trayApply");
    EXPECT_TRUE(waitFor([&] { return state().applyFeedback().has_value(); }));
    EXPECT_THAT(m_program->scripts.sources(), ElementsAre(HasSubstr("EssaiPlain-Regular")));
    EXPECT_FALSE(picker.isVisible());
}

TEST_F(ApplyTest, TheHotKeyFollowsTheSettingAndTellsOnceWhyItIsMissing)
{
    Preferences &preferences = m_program->preferences;
    MadeHotKeys keys;
    {
        const ApplyHotKey hotKey(keys, state(), preferences);
        ASSERT_THAT(keys.keys, SizeIs(1));
        m_program->front.bring("InDesign.exe");
        keys.keys.at(1).pressed(1);
        QTest::qWait(20);
        EXPECT_THAT(m_program->scripts.sources(), IsEmpty()) << "nothing is selected";
        workspace().select({"Essai Plain"});
        keys.keys.at(1).pressed(1);
        EXPECT_TRUE(waitFor([&] { return state().applyFeedback().has_value(); }));
        EXPECT_THAT(m_program->scripts.sources(), SizeIs(1));

        keys.keys.at(1).failed(HotKeys::Failure::Taken);
        EXPECT_THAT(state().notice().value_or(Notice()).text, HasSubstr("Super + Alt + V"));
        state().dismissNotice();
        preferences.applyHotKeyEnabled = false;
        EXPECT_THAT(keys.keys, IsEmpty());
        preferences.applyHotKeyEnabled = true;
        keys.keys.at(1).failed(HotKeys::Failure::Unavailable);
        EXPECT_FALSE(state().notice());
    }
    EXPECT_THAT(keys.keys, IsEmpty());
}

TEST(ApplyNotice, SaysWhatCameOfIt)
{
    EXPECT_EQ(noticeOf(Applied{1, HostApp::photoshop, "mais"}),
              (Notice{"Photoshop\u00A0: Police appliquée à 1 élément\u00A0; mais"}));
    EXPECT_EQ(noticeOf(Failed{"Pourquoi"}), (Notice{"Pourquoi", true}));
    EXPECT_EQ(noticeOf(NotRunning{HostApp::indesign}), (Notice{"InDesign n'est pas lancé.", true}));
    EXPECT_THAT(noticeOf(NotAuthorized{HostApp::indesign}).text, EndsWith("Automatisation."));
}

} // namespace
} // namespace kerlune
