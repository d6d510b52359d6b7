#include "LibraryProgram.h"
#include "State/Preferences.h"

namespace kerlune {
namespace {

using namespace ApplyOutcome;

constexpr AppState::Delays kQuickShuffle = [] {
    AppState::Delays delays = kQuick;
    delays.shuffle = 1ms;
    delays.missingFonts = 2ms;
    return delays;
}();

// The state with one font of the system, two of a watched folder, and hosts that answer as a test says.
class HostCommandsTest : public LibraryHome {
protected:
    HostCommandsTest()
    {
        m_program.load();
        QCoro::waitFor(m_state.folderLibrary().add(m_home / "Polices"));
        EXPECT_TRUE(waitUntil([this] { return faceOf(m_mono) != nullptr; }));
    }

    void answer(const ScriptEngine::Result &result)
    {
        m_program.scripts.setAnswer([result](const std::string &) { return result; });
    }
    FontRecordPointer faceOf(const std::string &file) const
    {
        for (const FontRecordPointer &face : m_state.allRecords()) {
            if (face->filePath == file)
                return face;
        }
        return nullptr;
    }
    void select(const FontRecordPointer &face)
    {
        m_state.selectedFamily = face->family;
        m_state.selectedFace = face->postScriptName;
    }
    std::vector<std::string> scriptsWith(const std::string &text) const
    {
        auto sources = m_scripts.sources();
        std::erase_if(sources, [&](const std::string &source) { return source.find(text) == std::string::npos; });
        return sources;
    }
    std::vector<std::string> applied() const { return scriptsWith("fontName"); }

    const std::string m_system = put("data/fonts/system.ttf");
    const std::string m_italic = put("Polices/b.ttf", "italic.ttf");
    const std::string m_mono = put("Polices/c.ttf", "mono-post.ttf");
    LibraryProgram m_program{m_directories, kQuickShuffle};
    AppState &m_state = m_program.state;
    MadeFrontApplication &m_front = m_program.front;
    MadeScriptEngine &m_scripts = m_program.scripts;
};

TEST_F(HostCommandsTest, AppliesTheSelectedFontWhereTheUserWasLast)
{
    AppState &state = m_state;
    QCoro::waitFor(state.applyCurrentToFrontmost());
    EXPECT_FALSE(state.applyFeedback()) << "nothing is selected";
    select(faceOf(m_mono));
    QCoro::waitFor(state.applyCurrentToFrontmost());
    EXPECT_THAT(failureMessage(*state.applyFeedback()),
                StartsWith("Aucune application compatible n'est lancée (Photoshop, "));

    m_front.bring("photoshop.exe");
    m_front.bring("InDesign.exe");
    m_front.bring("kerlune");
    QCoro::waitFor(state.applyCurrentToFrontmost());
    EXPECT_EQ(state.applyFeedback(), ApplyResult(Applied{2, HostApp::indesign}));
    EXPECT_THAT(applied().back(), HasSubstr(faceOf(m_mono)->postScriptName));
    EXPECT_THAT(state.recents(), ElementsAre(faceOf(m_mono)->family));
    EXPECT_THAT(linked(), ElementsAre(m_mono)) << "a host knows only what every program is shown";

    answer(ScriptEngine::Error{-600, ""});
    select(faceOf(m_italic));
    QCoro::waitFor(state.applyCurrent(HostApp::photoshop));
    EXPECT_EQ(state.applyFeedback(), ApplyResult(NotRunning{HostApp::photoshop}));
    EXPECT_THAT(state.recents(), SizeIs(1));

    fs::remove(m_italic);
    const std::size_t scripts = applied().size();
    QCoro::waitFor(state.applyCurrent(HostApp::photoshop));
    EXPECT_THAT(failureMessage(*state.applyFeedback()), EndsWith(" est introuvable : " + m_italic));
    EXPECT_THAT(applied(), SizeIs(scripts));
}

TEST_F(HostCommandsTest, OneApplicationWaitsForTheOtherAndTheLastOneWins)
{
    AppState &state = m_state;
    select(faceOf(m_italic));
    auto first = state.applyCurrent(HostApp::photoshop);
    EXPECT_TRUE(state.isApplying());
    auto second = state.applyCurrent(HostApp::illustrator);
    select(faceOf(m_mono));
    auto third = state.applyCurrent(HostApp::indesign);
    QCoro::waitFor(std::move(first));
    EXPECT_FALSE(state.isApplying());
    EXPECT_THAT(applied(), ElementsAre(HasSubstr("com.adobe.Photoshop"), HasSubstr("com.adobe.InDesign")));
    EXPECT_THAT(applied().front(), HasSubstr(faceOf(m_italic)->postScriptName)) << "as it was asked for";
    EXPECT_THAT(applied().back(), HasSubstr(faceOf(m_mono)->postScriptName));
}

TEST_F(HostCommandsTest, ShuffleAppliesEachFontThatIsSelected)
{
    AppState &state = m_state;
    EXPECT_FALSE(state.startShuffle());
    EXPECT_FALSE(state.shuffleActive());
    m_front.bring("InDesign.exe");
    ASSERT_TRUE(state.startShuffle());
    EXPECT_EQ(state.shuffleTarget(), HostApp::indesign);
    const auto &visible = state.visibleFamilies();
    ASSERT_GE(visible.size(), 2U);

    const auto isApplied = [&](const FontFamilyPointer &family) {
        return waitUntil(
            [&] { return !state.isApplying() && scriptsWith(family->representative()->postScriptName).size() == 1; });
    };
    state.stepShuffle(1);
    EXPECT_EQ(state.selectedFamily.value(), visible.front()->name);
    EXPECT_TRUE(isApplied(visible.front()));
    state.stepShuffle(-1); // before the first one comes the last one
    EXPECT_EQ(state.selectedFamily.value(), visible.back()->name);
    EXPECT_TRUE(isApplied(visible.back()));
    EXPECT_THAT(state.recents(), IsEmpty()) << "what is tried is not used yet";
    for (int rounds = 0; rounds < 20; ++rounds) {
        const auto before = state.selectedFamily.value();
        state.stepShuffleAtRandom();
        EXPECT_NE(state.selectedFamily.value(), before);
    }

    answer(ScriptEngine::Error{-609, ""});
    EXPECT_TRUE(waitUntil([&] { return !state.shuffleActive(); })) << "the host has gone";
    EXPECT_EQ(state.applyFeedback(), ApplyResult(NotRunning{HostApp::indesign}));
    const std::size_t scripts = applied().size();
    select(faceOf(m_mono));
    letPass(20ms);
    EXPECT_THAT(applied(), SizeIs(scripts));
    EXPECT_THAT(state.recents(), SizeIs(1));
    EXPECT_TRUE(waitUntil([&] { return linked().size() <= 1; })) << "what was only tried is not left active";
}

TEST_F(HostCommandsTest, ShuffleStopsAtOnce)
{
    AppState &state = m_state;
    m_front.bring("InDesign.exe");
    select(faceOf(m_italic));
    auto applying = state.applyCurrent(HostApp::photoshop);
    ASSERT_TRUE(state.startShuffle());
    EXPECT_TRUE(waitUntil([&] { return state.isApplying(); }));
    select(faceOf(m_mono));
    state.stopShuffle();
    QCoro::waitFor(std::move(applying));
    letPass(20ms);
    EXPECT_THAT(scriptsWith(faceOf(m_mono)->postScriptName), IsEmpty());
}

TEST_F(HostCommandsTest, ShowsTheFontsOfADocumentThatTheLibraryHolds)
{
    AppState &state = m_state;
    const FontRecordPointer mono = faceOf(m_mono);
    const FontRecordPointer italic = faceOf(m_italic);
    const auto activate = [&](std::vector<UsedFont> fonts) {
        QCoro::waitFor(state.activateMissingFonts(std::move(fonts), {"a.indd", "b.indd"}, HostApp::indesign));
    };
    activate({{mono->postScriptName}, {"", italic->family, italic->style}});
    EXPECT_THAT(linked(), UnorderedElementsAre(m_italic, m_mono));
    ASSERT_TRUE(state.notice());
    EXPECT_FALSE(state.notice()->isError);
    EXPECT_THAT(state.notice()->text, HasSubstr(italic->family + ' ' + italic->style));

    state.dismissNotice();
    activate({{mono->postScriptName}});
    EXPECT_FALSE(state.notice()) << "it is shown already";

    std::vector<UsedFont> many{{mono->postScriptName}, {"Lost-Bold", "Lost", "Bold"}, {"", "Gone"}};
    for (int i = 0; i < 8; ++i)
        many.push_back({"More" + std::to_string(i)});
    activate(many);
    EXPECT_EQ(state.notice(), (Notice{"« a.indd, b.indd » utilise des polices introuvables sur ce Mac : Lost Bold, "
                                      "Gone, More0, More1, More2, More3 et 4 autres",
                                      true}));
    EXPECT_THAT(linked(), SizeIs(2)) << "nothing is taken back";
}

TEST_F(HostCommandsTest, TellsMissingFontsEvenWhenActivatingFails)
{
    const FontRecordPointer mono = faceOf(m_mono);
    fs::remove(m_mono);
    QCoro::waitFor(m_state.activateMissingFonts({{mono->postScriptName}, {"Lost"}}, {"a.psd"}, HostApp::photoshop));
    ASSERT_TRUE(m_state.notice());
    EXPECT_THAT(m_state.notice()->text, StartsWith("Activation incomplète : "));
    EXPECT_THAT(m_state.notice()->text, EndsWith("« a.psd » utilise des polices introuvables sur ce Mac : Lost"));
}

TEST_F(HostCommandsTest, WatchesTheHostInFrontWhenTheSettingsWantIt)
{
    m_front.bring("photoshop.exe");
    EXPECT_TRUE(waitUntil([&] { return scriptsWith("every document").size() > 2; }));
    {
        Preferences preferences(m_directories);
        preferences.autoActivateMissingFonts = false;
    }
    letPass(20ms);
    const std::size_t scripts = m_scripts.sources().size();
    letPass(30ms);
    EXPECT_THAT(m_scripts.sources(), SizeIs(scripts));
}

} // namespace
} // namespace kerlune
