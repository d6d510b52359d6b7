#include "UI/Sidebar/Sidebar.h"

#include "UI/Drop.h"
#include "UI/Sidebar/SidebarModel.h"
#include "WindowHome.h"

#include <QAbstractItemModelTester>
#include <QDropEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>
#include <QTreeView>
#include <QUrl>

namespace kerlune {
namespace {

using Kind = SidebarSelection::Kind;

class SidebarTest : public WindowHome {
protected:
    void start()
    {
        put("Polices/a.ttf");
        put("Polices/b.ttf", "i-serif.ttf");
        m_program = openWatching();
        for (const FontFamilyPointer &family : state().families())
            m_families.push_back(family->name);
        ASSERT_GE(m_families.size(), 2U);
        show();
    }

    void show()
    {
        m_sidebar = std::make_unique<Sidebar>(m_program->workspace);
        m_sidebar->resize(220, 1'400);
        m_sidebar->show();
        m_sidebar->activateWindow();
        tree()->setFocus();
        new QAbstractItemModelTester(tree()->model(), QAbstractItemModelTester::FailureReportingMode::Fatal,
                                     tree()->model());
    }

    QTreeView *tree() { return m_sidebar->findChild<QTreeView *>(QStringLiteral("sidebarTree")); }
    SidebarModel &model() { return *qobject_cast<SidebarModel *>(tree()->model()); }
    QLineEdit *editor() { return tree()->findChild<QLineEdit *>(QStringLiteral("sidebarNameEditor")); }
    QModelIndex indexOf(Kind kind, const std::string &key = {}) { return model().indexOf({.kind = kind, .key = key}); }
    std::optional<std::int64_t> count(Kind kind, const std::string &key = {})
    {
        const SidebarEntry *entry = model().entry(indexOf(kind, key));
        return entry == nullptr ? std::nullopt : entry->count;
    }
    std::vector<std::string> names(SidebarGroup group)
    {
        std::vector<std::string> names;
        const QModelIndex head = model().headOf(group);
        names.reserve(static_cast<std::size_t>(model().rowCount(head)));
        for (int row = 0; row < model().rowCount(head); ++row)
            names.push_back(model().index(row, 0, head).data().toString().toStdString());
        return names;
    }
    QPoint middle(const QModelIndex &index) { return tree()->visualRect(index).center(); }
    using WindowHome::click;
    void click(const QModelIndex &index) { QTest::mouseClick(tree()->viewport(), Qt::LeftButton, {}, middle(index)); }
    void key(Qt::Key key) { QTest::keyClick(tree(), key); }
    // Types into the name that is edited, and ends that; the view takes the name a turn later.
    void type(const char *text, Qt::Key last = Qt::Key_Return)
    {
        ASSERT_NE(editor(), nullptr);
        QTest::keyClicks(editor(), QString::fromUtf8(text));
        QTest::keyClick(editor(), last);
        EXPECT_TRUE(waitFor([&] { return editor() == nullptr; }));
    }
    std::string firstCollection() { return state().collections().front().name; }

    template <typename Event>
    bool drag(const QPoint &position, QMimeData &data)
    {
        Event event(position, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(tree()->viewport(), &event);
        return event.isAccepted();
    }
    bool drop(const QPoint &position, QMimeData &data)
    {
        return drag<QDragEnterEvent>(position, data) && drag<QDragMoveEvent>(position, data) &&
               drag<QDropEvent>(position, data);
    }
    bool dropFamilies(const QPoint &position) { return drop(position, *draggedFamilies()); }
    std::unique_ptr<QMimeData> draggedFamilies() const
    {
        auto data = std::make_unique<QMimeData>();
        data->setData(QLatin1String(kFamiliesMimeType), encodeFamilies(m_families));
        return data;
    }

    std::unique_ptr<Sidebar> m_sidebar;
    std::vector<std::string> m_families;
};

TEST_F(SidebarTest, FollowsTheState)
{
    start();
    EXPECT_EQ(count(Kind::all), 2);
    EXPECT_EQ(count(Kind::folder, state().folderLibrary().folders().front().id), 2);
    EXPECT_THAT(names(SidebarGroup::collections), SizeIs(1)); // what the group is for
    EXPECT_EQ(model().index(0, 0, model().headOf(SidebarGroup::collections)).flags() & Qt::ItemIsSelectable, 0);

    commands().setFavorites({m_families[0], "Not in the library"}, true);
    commands().setTag("b", {m_families[0], "Not in the library"}, true);
    commands().setTag("a", m_families, true);
    const auto id = commands().createCollection("Affiches", m_families);
    EXPECT_TRUE(waitFor([&] { return names(SidebarGroup::tags).size() == 2; }));
    EXPECT_THAT(names(SidebarGroup::tags), ElementsAre("a", "b"));
    EXPECT_THAT(names(SidebarGroup::collections), ElementsAre("Affiches"));
    EXPECT_EQ(count(Kind::favorites), 1);
    EXPECT_EQ(count(Kind::tag, "b"), 1);
    EXPECT_EQ(count(Kind::collection, *id), 2);

    commands().renameTag("a", "z");
    commands().renameCollection(*id, "Livres");
    commands().createCollection("Annonces");
    model().update();
    EXPECT_THAT(names(SidebarGroup::tags), ElementsAre("b", "z"));
    EXPECT_THAT(names(SidebarGroup::collections), UnorderedElementsAre("Annonces", "Livres"));

    put("Autres/c.ttf", "italic.ttf");
    commands().addFolders({QString::fromStdString(m_home / "Autres")});
    EXPECT_TRUE(waitFor([&] { return names(SidebarGroup::folders).size() == 2; }));
    EXPECT_THAT(names(SidebarGroup::folders), UnorderedElementsAre("Autres", "Polices"));
}

TEST_F(SidebarTest, SelectsByMouseAndKeysAndFollowsOthers)
{
    start();
    commands().setTag("web", m_families, true);
    model().update();
    click(indexOf(Kind::favorites));
    EXPECT_EQ(state().sidebarSelection.value().kind, Kind::favorites);
    key(Qt::Key_Down);
    EXPECT_EQ(state().sidebarSelection.value().kind, Kind::recents);
    key(Qt::Key_Home); // the head of the library: it is not selected, and what is stays
    EXPECT_FALSE(tree()->currentIndex().parent().isValid());
    EXPECT_EQ(state().sidebarSelection.value().kind, Kind::recents);

    state().sidebarSelection = SidebarSelection{.kind = Kind::tag, .key = "web"};
    EXPECT_TRUE(tree()->selectionModel()->isSelected(indexOf(Kind::tag, "web")));
    commands().renameTag("web", "print");
    EXPECT_TRUE(waitFor([&] { return indexOf(Kind::tag, "print").isValid(); }));
    EXPECT_TRUE(tree()->selectionModel()->isSelected(indexOf(Kind::tag, "print")));
    EXPECT_EQ(state().sidebarSelection.value().key, "print");
}

TEST_F(SidebarTest, LeavesAFolderThatIsNoLongerWatched)
{
    start();
    const std::string id = state().folderLibrary().folders().front().id;
    click(indexOf(Kind::folder, id));
    EXPECT_EQ(state().sidebarSelection.value().key, id);
    key(Qt::Key_Delete);
    auto *question = m_sidebar->findChild<QMessageBox *>();
    ASSERT_NE(question, nullptr);
    QTest::keyClick(question, Qt::Key_Escape);
    EXPECT_THAT(state().folderLibrary().folders(), SizeIs(1));

    key(Qt::Key_Delete);
    EXPECT_TRUE(waitFor([&] { return m_sidebar->findChildren<QMessageBox *>().size() == 1; }));
    question = m_sidebar->findChild<QMessageBox *>();
    QTest::mouseClick(question->buttons().front(), Qt::LeftButton);
    EXPECT_TRUE(waitFor([&] { return state().folderLibrary().folders().empty(); }));
    EXPECT_TRUE(waitFor([&] { return state().sidebarSelection.value() == SidebarSelection(); }));
}

TEST_F(SidebarTest, RenamesInPlace)
{
    start();
    const auto id = commands().createCollection("Affiches");
    model().update();
    click(indexOf(Kind::collection, *id));
    const std::tuple<const char *, Qt::Key, const char *> cases[]{{"Livres", Qt::Key_Escape, "Affiches"},
                                                                  {"  ", Qt::Key_Return, "Affiches"},
                                                                  {"Livres", Qt::Key_Return, "Livres"}};
    for (const auto &[text, last, name] : cases) {
        key(Qt::Key_F2);
        type(text, last);
        EXPECT_EQ(firstCollection(), name);
    }
    workspace().undoStack().undo();
    EXPECT_EQ(firstCollection(), "Affiches");

    // What is typed stays while numbers change.
    key(Qt::Key_F2);
    ASSERT_NE(editor(), nullptr);
    QTest::keyClicks(editor(), QStringLiteral("Liv"));
    commands().addToCollection(*id, m_families);
    commands().setTag("new", m_families, true);
    model().update();
    EXPECT_EQ(count(Kind::collection, *id), 2);
    ASSERT_NE(editor(), nullptr);
    EXPECT_EQ(editor()->text(), QStringLiteral("Liv"));
    type("res");
    EXPECT_EQ(firstCollection(), "Livres");
}

TEST_F(SidebarTest, JoinsATagThatTakesTheNameOfAnother)
{
    start();
    commands().setTag("web", {m_families[0]}, true);
    commands().setTag("print", {m_families[1]}, true);
    model().update();
    EXPECT_TRUE(model().setData(indexOf(Kind::tag, "print"), QStringLiteral("web"), Qt::EditRole));
    EXPECT_THAT(state().allTags(), ElementsAre(Pair("web", 2)));
    EXPECT_TRUE(state().notice());
    workspace().undoStack().undo();
    EXPECT_THAT(state().allTags(), ElementsAre(Pair("print", 1), Pair("web", 1)));
}

TEST_F(SidebarTest, DeletesAtOnceWhatCanBeUndone)
{
    start();
    commands().setTag("web", m_families, true);
    const auto collection = commands().createCollection("Affiches", m_families);
    state().filters = Filters{.onlyVariable = true};
    const auto smart = commands().saveFilters("Variables");
    model().update();
    for (const SidebarSelection &selection : {SidebarSelection{.kind = Kind::tag, .key = "web"},
                                              SidebarSelection{.kind = Kind::collection, .key = *collection},
                                              SidebarSelection{.kind = Kind::smart, .key = *smart}}) {
        state().sidebarSelection = selection;
        key(Qt::Key_Delete);
        model().update();
        EXPECT_FALSE(model().indexOf(selection).isValid());
        EXPECT_EQ(state().sidebarSelection.value(), SidebarSelection());
        ASSERT_TRUE(state().notice());
        EXPECT_THAT(state().notice()->text, HasSubstr("Ctrl+Z"));
        workspace().undoStack().undo();
        model().update();
        EXPECT_TRUE(model().indexOf(selection).isValid());
    }
}

TEST_F(SidebarTest, TakesDroppedFamilies)
{
    start();
    commands().setTag("web", {m_families[0]}, true);
    model().update();
    EXPECT_TRUE(dropFamilies(middle(indexOf(Kind::tag, "web"))));
    EXPECT_THAT(state().allTags(), ElementsAre(Pair("web", 2)));
    EXPECT_TRUE(dropFamilies(middle(indexOf(Kind::favorites))));
    EXPECT_THAT(state().favorites(), UnorderedElementsAre(m_families[0], m_families[1]));
    EXPECT_FALSE(dropFamilies(middle(indexOf(Kind::recents))));

    EXPECT_TRUE(dropFamilies({20, tree()->viewport()->height() - 2})); // below the last line
    ASSERT_THAT(state().collections(), SizeIs(1));
    const std::string id = state().collections().front().id;
    EXPECT_THAT(state().collectionCache().at(id), SizeIs(2));
    type("Affiches");
    EXPECT_EQ(firstCollection(), "Affiches");
}

TEST_F(SidebarTest, ScrollsToWhatIsOutOfSightWhileDragging)
{
    start();
    for (int i = 0; i < 20; ++i)
        commands().setTag("tag " + std::to_string(i), m_families, true);
    model().update();
    m_sidebar->resize(220, 300);
    const QScrollBar &bar = *tree()->verticalScrollBar();
    ASSERT_TRUE(waitFor([&] { return bar.maximum() > 0; }));
    const auto data = draggedFamilies();
    drag<QDragEnterEvent>({40, 100}, *data);
    drag<QDragMoveEvent>({40, tree()->viewport()->height() - 4}, *data);
    EXPECT_TRUE(waitFor([&] { return bar.value() == bar.maximum(); }));
    drag<QDragMoveEvent>({40, 4}, *data);
    EXPECT_TRUE(waitFor([&] { return bar.value() == 0; }));
}

TEST_F(SidebarTest, WatchesDroppedFolders)
{
    start();
    const std::string file = put("Autres/c.ttf", "italic.ttf");
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(file))});
    EXPECT_TRUE(drop(middle(indexOf(Kind::recents)), data));
    EXPECT_TRUE(waitFor([&] { return state().folderLibrary().folders().size() == 2; }));
    EXPECT_THAT(names(SidebarGroup::folders), Contains("Polices"));
}

TEST_F(SidebarTest, AsksForATag)
{
    start();
    commands().setTag("web", {"Other"}, true);
    workspace().select(m_families);
    m_sidebar->addTag();
    auto &name = child<QLineEdit>(*m_sidebar, "tagName");
    QTest::keyClicks(&name, QStringLiteral("affiche"));
    QTest::keyClick(&name, Qt::Key_Return);
    EXPECT_THAT(state().allTags(), Contains(Pair("affiche", 2)));
    EXPECT_FALSE(state().tagPromptFamilies.value());
}

TEST_F(SidebarTest, MarksAFolderThatIsGone)
{
    start();
    const std::string id = state().folderLibrary().folders().front().id;
    EXPECT_FALSE(model().entry(indexOf(Kind::folder, id))->isMissing);
    fs::remove_all(m_home / "Polices");
    QCoro::waitFor(state().folderLibrary().rescanAll());
    EXPECT_TRUE(waitFor([&] { return model().entry(indexOf(Kind::folder, id))->isMissing; }));
    EXPECT_THAT(indexOf(Kind::folder, id).data(Qt::ToolTipRole).toString().toStdString(), HasSubstr("introuvable"));
}

TEST_F(SidebarTest, StaysAsItWasLeft)
{
    start();
    const QModelIndex head = model().headOf(SidebarGroup::classes);
    click(head);
    EXPECT_FALSE(tree()->isExpanded(head));
    m_sidebar.reset();
    show();
    EXPECT_FALSE(tree()->isExpanded(model().headOf(SidebarGroup::classes)));
    EXPECT_TRUE(tree()->isExpanded(model().headOf(SidebarGroup::tags)));
}

} // namespace
} // namespace kerlune
