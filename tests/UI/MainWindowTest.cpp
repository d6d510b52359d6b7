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
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QThread>

namespace kerlune {
namespace {

class MainWindowTest : public WindowHome {
protected:
    MainWindowTest() { offer({"plain.ttf", "italic.ttf"}); }

    // In place of the one that was open.
    void open(std::unique_ptr<Program> program)
    {
        m_window.reset();
        m_program = std::move(program);
        m_window = std::make_unique<MainWindow>(workspace());
        m_window->present();
        EXPECT_TRUE(QTest::qWaitForWindowActive(m_window.get(), 60'000));
    }
    void open() { open(openLoaded()); }

    template <typename Child>
    Child &find(const char *name) const
    {
        return child<Child>(*m_window, name);
    }
    std::string textOf(const char *label) const { return find<QLabel>(label).text().toStdString(); }
    void press(Qt::Key key) const { QTest::keyClick(m_window.get(), key, Qt::ControlModifier); }

    QPushButton *buttonWith(const QString &text) const
    {
        for (auto *button : m_window->findChildren<QPushButton *>()) {
            if (button->text().contains(text) && button->isVisible())
                return button;
        }
        return nullptr;
    }

    std::vector<std::string> menuTitles() const
    {
        std::vector<std::string> titles;
        for (const QAction *action : m_window->menuBar()->actions())
            titles.push_back(action->text().remove(u'&').toStdString());
        return titles;
    }

    std::unique_ptr<MainWindow> m_window;
};

TEST_F(MainWindowTest, OffersToLiftTheFilterThatLeavesNothing)
{
    open();
    ASSERT_FALSE(state().families().empty());
    const FontClass itsClass = state().families().front()->representative()->classification;
    state().filters = Filters{.search = "rien de tel", .classes = {itsClass}};
    const auto lift = [&] { return buttonWith(QStringLiteral("rien de tel")); };
    ASSERT_TRUE(waitFor([&] { return lift() != nullptr; }));
    const auto &page = find<QWidget>("messagePage");
    EXPECT_EQ(child<QLabel>(page, "messageTitle").text().toStdString(), "Aucune police ne correspond");
    // The number of families that come back is counted afterwards.
    ASSERT_TRUE(waitFor([&] { return lift() != nullptr && lift()->text().contains(QStringLiteral(" · ")); }));
    click(*lift());
    EXPECT_EQ(state().filters.value().search, "");
    EXPECT_THAT(state().filters.value().classes, SizeIs(1));
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
    open();
    const std::string family = state().families().front()->name;
    workspace().select({family});
    ASSERT_TRUE(waitFor([&] { return find<QAction>("favorite").isEnabled(); }));
    press(Qt::Key_B);
    EXPECT_THAT(state().favorites(), ElementsAre(family));
    auto &undo = find<QAction>("undo");
    EXPECT_THAT(undo.text().toStdString(), HasSubstr("Ajouter aux favoris"));
    undo.trigger();
    EXPECT_THAT(state().favorites(), IsEmpty());
    EXPECT_FALSE(undo.isEnabled());
}

TEST_F(MainWindowTest, SwitchesViewsByDigitsAndByTheKeysOfAFrenchKeyboard)
{
    open();
    const std::tuple<Qt::Key, ViewMode> cases[]{
        {Qt::Key_2, ViewMode::list}, {Qt::Key_Ampersand, ViewMode::grid}, {Qt::Key_QuoteDbl, ViewMode::waterfall},
        {Qt::Key_1, ViewMode::grid}, {Qt::Key_Eacute, ViewMode::list},    {Qt::Key_3, ViewMode::waterfall}};
    for (const auto &[key, mode] : cases) {
        press(key);
        EXPECT_EQ(state().viewMode.value(), mode) << static_cast<int>(key);
    }
}

TEST_F(MainWindowTest, IsAsItWasLeft)
{
    open();
    m_window->resize(1100, 700);
    state().viewMode = ViewMode::waterfall;
    state().sidebarSelection = SidebarSelection{.kind = SidebarSelection::Kind::favorites};
    press(Qt::Key_I);
    m_window->close();
    open(std::make_unique<Program>(*this));
    state().sidebarSelection = SidebarSelection{.kind = SidebarSelection::Kind::color};
    m_window->close(); // before anything was loaded
    open();
    EXPECT_EQ(state().viewMode.value(), ViewMode::waterfall);
    EXPECT_EQ(state().sidebarSelection.value().kind, SidebarSelection::Kind::favorites);
    EXPECT_FALSE(m_window->findChild<Inspector *>()->isVisible());

    // What was selected may have gone meanwhile.
    const auto id = commands().createCollection("Affiche");
    ASSERT_TRUE(id);
    state().sidebarSelection = SidebarSelection{.kind = SidebarSelection::Kind::collection, .key = *id};
    m_window->close();
    commands().deleteCollection(*id);
    open();
    EXPECT_EQ(state().sidebarSelection.value(), SidebarSelection());
}

TEST_F(MainWindowTest, SpeaksAnotherLanguageAtOnce)
{
    open();
    auto &chosen = m_program->preferences.language;
    chosen = InterfaceLanguage::french;
    const Language language(m_program->preferences);
    EXPECT_THAT(menuTitles(), Contains("Fichier"));
    chosen = InterfaceLanguage::english;
    ASSERT_TRUE(waitFor([&] { return menuTitles().front() != "Fichier"; }));
    EXPECT_THAT(menuTitles(), Contains("File"));
    chosen = InterfaceLanguage::french;
    ASSERT_TRUE(waitFor([&] { return menuTitles().front() == "Fichier"; }));
}

TEST_F(MainWindowTest, WelcomesUntilItIsDismissed)
{
    open();
    ASSERT_TRUE(waitFor([&] { return find<QWidget>("welcomeBanner").isVisible(); }));
    const QSignalSpy folderWanted(&workspace(), &Workspace::addFolderWanted);
    click(*m_window, "welcomeClose");
    EXPECT_FALSE(find<QWidget>("welcomeBanner").isVisible());
    EXPECT_EQ(folderWanted.count(), 0);
    open();
    ASSERT_TRUE(waitFor([&] { return m_window->isPainted(); }));
    EXPECT_FALSE(find<QWidget>("welcomeBanner").isVisible());
}

TEST_F(MainWindowTest, TellsNoticesUntilTheyAreClosed)
{
    open();
    state().setNotice({"Disque plein", true});
    EXPECT_TRUE(find<QWidget>("noticeBar").isVisible());
    EXPECT_EQ(textOf("noticeText"), "Erreur\u00A0: Disque plein");
    click(*m_window, "noticeClose");
    EXPECT_FALSE(find<QWidget>("noticeBar").isVisible());
    EXPECT_FALSE(state().notice());
}

TEST_F(MainWindowTest, KeepsSettingsAsTheyAreMade)
{
    open();
    m_window->showSettings();
    const auto *settings = m_window->findChild<SettingsWindow *>();
    ASSERT_NE(settings, nullptr);
    child<QLineEdit>(*settings, "customPreviewText").insert(QStringLiteral("Zoé"));
    QTest::keyClick(&child<QComboBox>(*settings, "appearance"), Qt::Key_End);
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
    EXPECT_EQ(SingleInstance(m_directories, 50ms).begin({}), SingleInstance::Role::Alone);
    EXPECT_EQ(startAgain(m_directories, {}), SingleInstance::Role::Second) << "its socket must be as it was";
}

} // namespace
} // namespace kerlune
