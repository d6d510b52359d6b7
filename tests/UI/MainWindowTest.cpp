#include "UI/Window/MainWindow.h"

#include "UI/Inspector/Inspector.h"
#include "UI/Window/FilterCriteria.h"
#include "UI/Window/Language.h"
#include "UI/Window/SettingsWindow.h"
#include "UI/Window/SingleInstance.h"
#include "WindowHome.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QLocalServer>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QThread>
#include <QToolButton>

namespace kerlune {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class MainWindowTest : public WindowHome {
protected:
    struct Opened {
        explicit Opened(std::unique_ptr<Program> itsProgram)
            : program(std::move(itsProgram))
            , window(program->workspace)
        {
            window.present();
            EXPECT_TRUE(QTest::qWaitForWindowActive(&window, 60'000));
        }

        std::unique_ptr<Program> program;
        MainWindow window;
    };

    std::unique_ptr<Opened> openWindow() const { return std::make_unique<Opened>(openLoaded()); }

    // Families "Plain" and the like, as the test fonts name themselves.
    void putTwoFamilies() const
    {
        put("data/fonts/plain.ttf");
        put("data/fonts/italic.ttf", "italic.ttf");
    }

    static std::string textOf(const QWidget &window, const char *label)
    {
        const auto *found = window.findChild<QLabel *>(QLatin1String(label));
        return found == nullptr ? std::string() : found->text().toStdString();
    }

    static QPushButton *buttonWith(const QWidget &window, const QString &text)
    {
        for (auto *button : window.findChildren<QPushButton *>()) {
            if (button->text().contains(text) && button->isVisible())
                return button;
        }
        return nullptr;
    }

    static std::vector<std::string> menuTitles(const MainWindow &window)
    {
        std::vector<std::string> titles;
        for (const QAction *action : window.menuBar()->actions())
            titles.push_back(action->text().remove(u'&').toStdString());
        return titles;
    }
};

TEST_F(MainWindowTest, OffersToLiftTheFilterThatLeavesNothing)
{
    putTwoFamilies();
    const auto opened = openWindow();
    AppState &state = opened->program->state;
    ASSERT_FALSE(state.families().empty());
    state.filters =
        Filters{.search = "rien de tel", .classes = {state.families().front()->representative()->classification}};
    ASSERT_TRUE(waitFor([&] { return buttonWith(opened->window, QStringLiteral("rien de tel")) != nullptr; }));
    const auto &page = *opened->window.findChild<QWidget *>(QStringLiteral("messagePage"));
    EXPECT_EQ(textOf(page, "messageTitle"), "Aucune police ne correspond");
    // The number of families that come back is counted afterwards.
    ASSERT_TRUE(waitFor([&] {
        const QPushButton *lift = buttonWith(opened->window, QStringLiteral("rien de tel"));
        return lift != nullptr && lift->text().contains(QStringLiteral(" · "));
    }));
    QTest::mouseClick(buttonWith(opened->window, QStringLiteral("rien de tel")), Qt::LeftButton);
    EXPECT_EQ(state.filters.value().search, "");
    EXPECT_THAT(state.filters.value().classes, SizeIs(1));
    ASSERT_TRUE(waitFor([&] { return !page.isVisible(); }));
}

TEST_F(MainWindowTest, NamesEachCriterionAndLiftsItAlone)
{
    const Filters filters{.search = "a",
                          .classes = {FontClass::serif},
                          .onlyVariable = true,
                          .weightRange = {300, 500},
                          .requiredGlyphs = "é",
                          .tags = {"web"}};
    const auto criteria = criteriaOf(filters);
    ASSERT_THAT(criteria, SizeIs(6));
    for (const FilterCriterion &criterion : criteria) {
        EXPECT_THAT(criteriaOf(criterion.lifted), SizeIs(5));
        EXPECT_FALSE(criterion.text.isEmpty());
    }
    EXPECT_THAT(criteriaOf({}), IsEmpty());
}

TEST_F(MainWindowTest, TakesBackFromTheMenuWhatAShortcutDid)
{
    putTwoFamilies();
    const auto opened = openWindow();
    AppState &state = opened->program->state;
    const std::string family = state.families().front()->name;
    opened->program->workspace.select({family});
    const auto *favorite = opened->window.findChild<QAction *>(QStringLiteral("favorite"));
    ASSERT_TRUE(waitFor([&] { return favorite->isEnabled(); }));
    QTest::keyClick(&opened->window, Qt::Key_B, Qt::ControlModifier);
    EXPECT_THAT(state.favorites(), ElementsAre(family));
    auto *undo = opened->window.findChild<QAction *>(QStringLiteral("undo"));
    EXPECT_THAT(undo->text().toStdString(), HasSubstr("Ajouter aux favoris"));
    undo->trigger();
    EXPECT_THAT(state.favorites(), IsEmpty());
    EXPECT_FALSE(undo->isEnabled());
}

TEST_F(MainWindowTest, SwitchesViewsByDigitsAndByTheKeysOfAFrenchKeyboard)
{
    putTwoFamilies();
    const auto opened = openWindow();
    AppState &state = opened->program->state;
    const std::tuple<Qt::Key, ViewMode> cases[]{
        {Qt::Key_2, ViewMode::list}, {Qt::Key_Ampersand, ViewMode::grid}, {Qt::Key_QuoteDbl, ViewMode::waterfall},
        {Qt::Key_1, ViewMode::grid}, {Qt::Key_Eacute, ViewMode::list},    {Qt::Key_3, ViewMode::waterfall}};
    for (const auto &[key, mode] : cases) {
        QTest::keyClick(&opened->window, key, Qt::ControlModifier);
        EXPECT_EQ(state.viewMode.value(), mode) << static_cast<int>(key);
    }
}

TEST_F(MainWindowTest, IsAsItWasLeft)
{
    putTwoFamilies();
    {
        const auto opened = openWindow();
        opened->window.resize(1100, 700);
        opened->program->state.viewMode = ViewMode::waterfall;
        opened->program->state.sidebarSelection = SidebarSelection{.kind = SidebarSelection::Kind::favorites};
        QTest::keyClick(&opened->window, Qt::Key_I, Qt::ControlModifier);
        opened->window.close();
    }
    {
        const auto early = std::make_unique<Opened>(std::make_unique<Program>(*this));
        early->program->state.sidebarSelection = SidebarSelection{.kind = SidebarSelection::Kind::color};
        early->window.close(); // before anything was loaded
    }
    const auto opened = openWindow();
    EXPECT_EQ(opened->program->state.viewMode.value(), ViewMode::waterfall);
    EXPECT_EQ(opened->program->state.sidebarSelection.value().kind, SidebarSelection::Kind::favorites);
    EXPECT_FALSE(opened->window.findChild<Inspector *>()->isVisible());
}

TEST_F(MainWindowTest, FallsBackToAllWhenWhatWasSelectedIsGone)
{
    putTwoFamilies();
    {
        const auto opened = openWindow();
        const auto id = opened->program->workspace.commands().createCollection("Affiche");
        ASSERT_TRUE(id);
        opened->program->state.sidebarSelection =
            SidebarSelection{.kind = SidebarSelection::Kind::collection, .key = *id};
        opened->window.close();
        opened->program->workspace.commands().deleteCollection(*id);
    }
    EXPECT_EQ(openWindow()->program->state.sidebarSelection.value(), SidebarSelection());
}

TEST_F(MainWindowTest, SpeaksAnotherLanguageAtOnce)
{
    putTwoFamilies();
    const auto opened = openWindow();
    opened->program->preferences.language = InterfaceLanguage::french;
    const Language language(opened->program->preferences);
    EXPECT_THAT(menuTitles(opened->window), Contains("Fichier"));
    opened->program->preferences.language = InterfaceLanguage::english;
    ASSERT_TRUE(waitFor([&] { return menuTitles(opened->window).front() != "Fichier"; }));
    EXPECT_THAT(menuTitles(opened->window), Contains("File"));
    opened->program->preferences.language = InterfaceLanguage::french;
    ASSERT_TRUE(waitFor([&] { return menuTitles(opened->window).front() == "Fichier"; }));
}

TEST_F(MainWindowTest, WelcomesUntilItIsDismissed)
{
    putTwoFamilies();
    {
        const auto opened = openWindow();
        auto *banner = opened->window.findChild<QWidget *>(QStringLiteral("welcomeBanner"));
        ASSERT_TRUE(waitFor([&] { return banner->isVisible(); }));
        const QSignalSpy folderWanted(&opened->program->workspace, &Workspace::addFolderWanted);
        QTest::mouseClick(opened->window.findChild<QToolButton *>(QStringLiteral("welcomeClose")), Qt::LeftButton);
        EXPECT_FALSE(banner->isVisible());
        EXPECT_EQ(folderWanted.count(), 0);
    }
    const auto opened = openWindow();
    ASSERT_TRUE(waitFor([&] { return opened->window.isPainted(); }));
    EXPECT_FALSE(opened->window.findChild<QWidget *>(QStringLiteral("welcomeBanner"))->isVisible());
}

TEST_F(MainWindowTest, TellsNoticesWithoutShiftingWhatIsBelow)
{
    putTwoFamilies();
    const auto opened = openWindow();
    opened->program->state.setNotice({"Disque plein", true});
    auto *bar = opened->window.findChild<QWidget *>(QStringLiteral("noticeBar"));
    EXPECT_TRUE(bar->isVisible());
    EXPECT_EQ(textOf(opened->window, "noticeText"), "Erreur\u00A0: Disque plein");
    QTest::mouseClick(opened->window.findChild<QToolButton *>(QStringLiteral("noticeClose")), Qt::LeftButton);
    EXPECT_FALSE(bar->isVisible());
    EXPECT_FALSE(opened->program->state.notice());
}

TEST_F(MainWindowTest, KeepsSettingsAsTheyAreMade)
{
    const auto opened = openWindow();
    opened->window.showSettings();
    auto *settings = opened->window.findChild<SettingsWindow *>();
    ASSERT_NE(settings, nullptr);
    settings->findChild<QLineEdit *>(QStringLiteral("customPreviewText"))->insert(QStringLiteral("Zoé"));
    auto *appearance = settings->findChild<QComboBox *>(QStringLiteral("appearance"));
    QTest::keyClick(appearance, Qt::Key_End);
    const Preferences kept(m_directories);
    EXPECT_EQ(kept.customPreviewText.value(), QStringLiteral("Zoé"));
    EXPECT_EQ(kept.appearance.value(), Appearance::dark);
}

class SingleInstanceTest : public WindowHome {
protected:
    SingleInstanceTest() { qputenv("XDG_RUNTIME_DIR", QByteArray::fromStdString(m_home.path().string())); }
    ~SingleInstanceTest() override { qunsetenv("XDG_RUNTIME_DIR"); }

    // A second start, in a thread of its own as it would be in a process of its own.
    static SingleInstance::Role startAgain(const Directories &directories, const QStringList &paths)
    {
        std::optional<SingleInstance::Role> role;
        const std::unique_ptr<QThread> other(
            QThread::create([&] { role = SingleInstance(directories, std::chrono::minutes(1)).begin(paths); }));
        other->start();
        EXPECT_TRUE(waitFor([&] { return other->isFinished(); }));
        return *role;
    }
};

TEST_F(SingleInstanceTest, HandsThePathsToTheFirstOne)
{
    SingleInstance first(m_directories);
    QSignalSpy asked(&first, &SingleInstance::asked);
    ASSERT_EQ(first.begin({}), SingleInstance::Role::First);
    EXPECT_EQ(startAgain(m_directories, {QStringLiteral("/a é")}), SingleInstance::Role::Second);
    ASSERT_EQ(asked.count(), 1);
    EXPECT_EQ(asked.front().front().toStringList(), QStringList{QStringLiteral("/a é")});
    // Another library has a window of its own.
    EXPECT_EQ(startAgain(directoriesBelow(m_home / "other"), {}), SingleInstance::Role::First);
}

TEST_F(SingleInstanceTest, TakesOverOnlyASocketThatNobodyHears)
{
    SingleInstance hung(m_directories);
    ASSERT_EQ(hung.begin({}), SingleInstance::Role::First);
    // Nothing runs this thread's event loop meanwhile: it answers nothing.
    EXPECT_EQ(SingleInstance(m_directories, std::chrono::milliseconds(50)).begin({}), SingleInstance::Role::Alone);
    EXPECT_EQ(startAgain(m_directories, {}), SingleInstance::Role::Second) << "its socket must be as it was";
}

} // namespace
} // namespace kerlune
