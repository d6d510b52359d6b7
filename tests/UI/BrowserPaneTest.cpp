#include "UI/Browser/BrowserPane.h"

#include "UI/Browser/BrowserView.h"
#include "UI/Browser/FamilyListModel.h"
#include "UI/Drop.h"
#include "WindowHome.h"

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QUrl>

namespace kerlune {
namespace {

using Names = std::vector<std::string>;

// In library order: Essai 9, 10, Accents, Alpha, Beta, Classe 01 … 12, Delta, Epsilon, Gamma, Zeta.
constexpr std::initializer_list<const char *> kFonts{
    "family-9.ttf",        "family-10.ttf",       "french-no-y.ttf",     "i-sans.ttf",          "i-slab.ttf",
    "i-short.ttf",         "i-missing.ttf",       "i-serif.ttf",         "i-tall.ttf",          "family-class-01.ttf",
    "family-class-02.ttf", "family-class-03.ttf", "family-class-04.ttf", "family-class-05.ttf", "family-class-06.ttf",
    "family-class-07.ttf", "family-class-08.ttf", "family-class-09.ttf", "family-class-10.ttf"};

class BrowserPaneTest : public WindowHome {
protected:
    void open()
    {
        offer(kFonts);
        m_program = openLoaded();
        m_pane = std::make_unique<BrowserPane>(workspace());
        m_pane->resize(800, 480);
        m_pane->show();
        m_view = m_pane->findChild<BrowserView *>();
        m_model = m_pane->findChild<FamilyListModel *>();
        new QAbstractItemModelTester(m_model, QAbstractItemModelTester::FailureReportingMode::Fatal, m_model);
        m_pane->focusView();
        ASSERT_THAT(m_model->families(), SizeIs(kFonts.size()));
    }

    Names selected() const { return workspace().selectedFamilies.value(); }
    std::string current() const { return state().selectedFamily.value().value_or("none"); }
    void search(const std::string &text) const { state().filters = Filters{.search = text}; }
    QModelIndex index(const std::string &name) const { return m_model->index(m_model->rowOf(name).value_or(-1)); }
    QRect cell(const std::string &name) const { return m_view->visualRect(index(name)); }

    void click(const std::string &name, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QTest::mouseClick(m_view->viewport(), Qt::LeftButton, modifiers, cell(name).topLeft() + QPoint(30, 30));
    }
    void clickPart(const std::string &name, const QRect &part) const
    {
        QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, cell(name).topLeft() + part.center());
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QTest::keyClick(m_view, key, modifiers);
    }

    std::unique_ptr<BrowserPane> m_pane;
    BrowserView *m_view = nullptr;
    FamilyListModel *m_model = nullptr;
};

TEST_F(BrowserPaneTest, SelectsByClicks)
{
    open();
    click("Essai 9");
    EXPECT_THAT(selected(), ElementsAre("Essai 9"));
    EXPECT_EQ(current(), "Essai 9");
    click("Essai Alpha", Qt::ShiftModifier);
    EXPECT_THAT(selected(), ElementsAre("Essai 9", "Essai 10", "Essai Accents", "Essai Alpha"));
    EXPECT_EQ(current(), "Essai Alpha");
    click("Essai 10", Qt::ControlModifier);
    EXPECT_THAT(selected(), ElementsAre("Essai 9", "Essai Accents", "Essai Alpha"));
    EXPECT_EQ(current(), "Essai Accents");
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_THAT(selected(), SizeIs(kFonts.size()));

    // From the gap below the first card across the second line.
    const QPoint from = cell("Essai 9").bottomLeft() + QPoint(-6, 6);
    QTest::mousePress(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, from);
    EXPECT_THAT(selected(), IsEmpty());
    EXPECT_EQ(current(), "none");
    QTest::mouseMove(m_view->viewport(), cell("Essai Beta").center());
    EXPECT_THAT(selected(), ElementsAre("Essai Alpha", "Essai Beta"));
    QTest::mouseRelease(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, cell("Essai Beta").center());
    QTest::mouseMove(m_view->viewport(), cell("Essai 9").center());
    EXPECT_THAT(selected(), ElementsAre("Essai Alpha", "Essai Beta"));
}

TEST_F(BrowserPaneTest, MovesByKeysAndTyping)
{
    open();
    QApplication::setKeyboardInputInterval(600'000);
    ASSERT_EQ(m_view->cells().columns(), 3);
    press(Qt::Key_Home);
    EXPECT_EQ(current(), "Essai 9");
    press(Qt::Key_Down);
    EXPECT_EQ(current(), "Essai Alpha");
    press(Qt::Key_Right);
    press(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_THAT(selected(), ElementsAre("Essai Alpha", "Essai Beta"));
    press(Qt::Key_End);
    EXPECT_EQ(current(), "Essai Zeta");
    EXPECT_TRUE(m_view->viewport()->rect().contains(cell("Essai Zeta")));
    press(Qt::Key_Down);
    EXPECT_EQ(current(), "Essai Zeta");
    press(Qt::Key_PageUp);
    EXPECT_NE(current(), "Essai Zeta");

    QSignalSpy large(&workspace(), &Workspace::largePreviewWanted);
    QTest::keyClicks(m_view, QStringLiteral("ESSAI de")); // the space belongs to the name
    EXPECT_EQ(current(), "Essai Delta");
    EXPECT_THAT(large, IsEmpty());
    press(Qt::Key_Home);
    const int interval = QApplication::keyboardInputInterval();
    QApplication::setKeyboardInputInterval(0); // what was typed is long past
    press(Qt::Key_Space);
    QApplication::setKeyboardInputInterval(interval);
    EXPECT_THAT(large, SizeIs(1));
    QSignalSpy panels(&workspace(), &Workspace::panelWanted);
    press(Qt::Key_Return);
    ASSERT_THAT(panels, SizeIs(1));
    EXPECT_EQ(panels.front().front().value<Workspace::Panel>(), Workspace::Panel::styles);
}

TEST_F(BrowserPaneTest, KeepsWhatIsSelectedWhileItIsVisible)
{
    open();
    workspace().select({"Essai Gamma", "Essai Beta"});
    EXPECT_EQ(current(), "Essai Gamma");
    for (const char *text : {"e", "es", "essai", "essai g", "ga"})
        search(text);
    EXPECT_THAT(selected(), ElementsAre("Essai Gamma"));
    EXPECT_EQ(current(), "Essai Gamma");
    search("");
    EXPECT_EQ(m_view->currentIndex(), index("Essai Gamma"));
    EXPECT_THAT(m_view->selectedNames(), ElementsAre("Essai Gamma"));
    search("beta");
    EXPECT_THAT(selected(), IsEmpty());
    EXPECT_EQ(current(), "none");
}

TEST_F(BrowserPaneTest, FollowsWhatOthersSelect)
{
    open();
    workspace().select({"Essai Alpha", "Essai Beta"});
    EXPECT_THAT(m_view->selectedNames(), ElementsAre("Essai Alpha", "Essai Beta"));
    state().selectedFamily = "Essai Beta";
    EXPECT_THAT(m_view->selectedNames(), ElementsAre("Essai Alpha", "Essai Beta"));
    EXPECT_EQ(m_view->currentIndex(), index("Essai Beta"));
    state().selectedFamily = "Essai Zeta";
    EXPECT_THAT(selected(), ElementsAre("Essai Zeta"));
    EXPECT_TRUE(m_view->viewport()->rect().contains(cell("Essai Zeta")));
    state().selectedFamily = std::nullopt;
    EXPECT_THAT(m_view->selectedNames(), IsEmpty());

    state().scrollTarget = "Essai 9";
    EXPECT_TRUE(m_view->viewport()->rect().contains(cell("Essai 9")));
    EXPECT_FALSE(state().scrollTarget.value());
    state().keyboardFocus = KeyboardFocus{"Essai Zeta", 1};
    EXPECT_EQ(current(), "Essai Zeta");
    EXPECT_TRUE(m_view->viewport()->rect().contains(cell("Essai Zeta")));
}

TEST_F(BrowserPaneTest, KeepsItsPlaceWhenOtherFamiliesComeAndGo)
{
    open();
    state().viewMode = ViewMode::list;
    m_view->verticalScrollBar()->setValue(m_view->cells().rowStep() * 5 + 7);
    const QRect before = cell("Essai Classe 05");
    ASSERT_TRUE(m_view->viewport()->rect().intersects(before));
    search("essai c"); // the first families go
    EXPECT_EQ(cell("Essai Classe 05").top(), before.top());
    search("");
    EXPECT_EQ(cell("Essai Classe 05").top(), before.top());
    state().viewMode = ViewMode::waterfall;
    state().viewMode = ViewMode::list;
    m_pane->resize(500, 480);
    EXPECT_TRUE(m_view->viewport()->rect().intersects(cell("Essai Classe 05")));
    EXPECT_FALSE(m_view->horizontalScrollBar()->isVisible());
}

TEST_F(BrowserPaneTest, TogglesFavouritesOfAllThatAreSelected)
{
    open();
    const QRect star = m_view->cells().cell().star;
    clickPart("Essai 9", star);
    EXPECT_THAT(state().favorites(), ElementsAre("Essai 9"));
    EXPECT_THAT(selected(), IsEmpty());
    click("Essai 10");
    click("Essai Accents", Qt::ControlModifier);
    clickPart("Essai 10", star);
    EXPECT_THAT(state().favorites(), UnorderedElementsAre("Essai 10", "Essai 9", "Essai Accents"));
    EXPECT_TRUE(index("Essai 9").data(Qt::AccessibleTextRole).toString().contains(QStringLiteral("Favori")));
    clickPart("Essai Accents", star);
    EXPECT_THAT(state().favorites(), ElementsAre("Essai 9"));
    EXPECT_THAT(selected(), ElementsAre("Essai 10", "Essai Accents"));
}

TEST_F(BrowserPaneTest, TogglesActivationByTheSign)
{
    put("Polices/tall.ttf", "family-class-12.ttf");
    open();
    commands().addFolders({QString::fromStdString(m_home / "Polices")});
    ASSERT_TRUE(waitFor([&] { return m_model->rowOf("Essai Classe 12").has_value(); }));
    const auto isActive = [&] {
        const auto family = state().family("Essai Classe 12");
        return state().activationState(*family) == ActivationState::active;
    };
    m_view->scrollTo(index("Essai Classe 12"));
    const QRect sign = m_view->cells().cell().sign;
    clickPart("Essai Classe 12", sign);
    EXPECT_TRUE(waitFor(isActive));
    EXPECT_THAT(linked(), SizeIs(1));
    const QString told = index("Essai Classe 12").data(Qt::AccessibleTextRole).toString();
    EXPECT_TRUE(told.contains(QStringLiteral("Active"))) << told.toStdString();
    clickPart("Essai Classe 12", sign);
    EXPECT_TRUE(waitFor([&] { return !isActive(); }));
    const int changes = workspace().undoStack().count();
    m_view->scrollTo(index("Essai 9"));
    clickPart("Essai 9", sign); // of the system: nothing to toggle
    EXPECT_EQ(workspace().undoStack().count(), changes);
}

TEST_F(BrowserPaneTest, AsksForTheMenuOfWhatIsUnderThePointer)
{
    open();
    QSignalSpy menus(m_pane.get(), &BrowserPane::contextMenuWanted);
    const auto ask = [&](QPoint at, QContextMenuEvent::Reason reason) {
        QContextMenuEvent event(reason, at, m_view->viewport()->mapToGlobal(at));
        QApplication::sendEvent(m_view->viewport(), &event);
    };
    ask({2, 2}, QContextMenuEvent::Mouse);
    EXPECT_THAT(menus, IsEmpty());
    ask(cell("Essai 10").center(), QContextMenuEvent::Mouse);
    EXPECT_THAT(selected(), ElementsAre("Essai 10"));
    click("Essai 9", Qt::ControlModifier);
    ask(cell("Essai 10").center(), QContextMenuEvent::Mouse);
    EXPECT_THAT(selected(), SizeIs(2));
    ask({0, 0}, QContextMenuEvent::Keyboard);
    ASSERT_THAT(menus, SizeIs(3));
    EXPECT_TRUE(m_view->rect().contains(m_view->mapFromGlobal(menus.back().front().toPoint())));
}

TEST_F(BrowserPaneTest, ChangesTheSizeByTheWheel)
{
    open();
    state().previewSize = 34;
    const int height = m_view->cells().cellSize().height();
    const QPoint at = m_view->viewport()->rect().center();
    for (int i = 0; i < 20; ++i) {
        QWheelEvent wheel(at, m_view->viewport()->mapToGlobal(at), {}, {0, 120}, Qt::NoButton, Qt::ControlModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(m_view->viewport(), &wheel);
    }
    EXPECT_GT(state().previewSize.value(), 60);
    EXPECT_GT(m_view->cells().cellSize().height(), height);
}

TEST_F(BrowserPaneTest, DragsNamesAndFiles)
{
    open();
    const std::unique_ptr<QMimeData> data(m_model->mimeData({index("Essai Beta"), index("Essai 9")}));
    EXPECT_THAT(droppedFamilies(*data), ElementsAre("Essai 9", "Essai Beta"));
    ASSERT_THAT(data->urls(), SizeIs(2));
    for (const QUrl &url : data->urls())
        EXPECT_TRUE(fs::exists(url.toLocalFile().toStdString()));
    EXPECT_THAT(decodeFamilies(encodeFamilies({"Été 永", "a\nb", "", "B&B"})), ElementsAre("Été 永", "B&B"));
}

TEST_F(BrowserPaneTest, TellsScreenReadersOfEachFamily)
{
    open();
    click("Essai Beta");
    QAccessibleInterface *list = QAccessible::queryAccessibleInterface(m_view);
    ASSERT_EQ(list->role(), QAccessible::List);
    ASSERT_EQ(list->childCount(), static_cast<int>(kFonts.size()));
    QAccessibleInterface *beta = list->focusChild();
    ASSERT_NE(beta, nullptr);
    EXPECT_EQ(beta->text(QAccessible::Name), QStringLiteral("Essai Beta, 1 style, Police du système"));
    EXPECT_TRUE(beta->state().selected);
    EXPECT_EQ(list->indexOfChild(beta), index("Essai Beta").row());
    EXPECT_EQ(list->child(list->indexOfChild(beta)), beta);
    EXPECT_EQ(list->childAt(beta->rect().center().x(), beta->rect().center().y()), beta);
    EXPECT_FALSE(list->child(0)->state().selected);
    EXPECT_TRUE(list->child(list->childCount() - 1)->state().offscreen);

    search("Gamma");
    ASSERT_EQ(list->childCount(), 1);
    EXPECT_TRUE(list->child(0)->text(QAccessible::Name).startsWith(QStringLiteral("Essai Gamma, ")));
    EXPECT_EQ(list->child(1), nullptr);
}

} // namespace
} // namespace kerlune
