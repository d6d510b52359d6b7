#include "UI/LibraryCommands.h"

#include "WindowHome.h"

#include <QSignalSpy>

namespace kerlune {
namespace {

class LibraryCommandsTest : public WindowHome {
protected:
    LibraryCommandsTest() { m_program = std::make_unique<Program>(*this); }

    void waitForWork() const
    {
        EXPECT_TRUE(waitFor([&] { return commands().work.value().isEmpty(); }));
    }
    QUndoStack &stack() const { return workspace().undoStack(); }
};

TEST_F(LibraryCommandsTest, TakesBackWhatTheUserMade)
{
    commands().setFavorites({"A", "B"}, true);
    commands().setTag("web", {"A"}, true);
    commands().setTag("print", {"A", "B"}, true);
    commands().renameTag("print", "web"); // joins the other one
    EXPECT_THAT(state().allTags(), ElementsAre(Pair("web", 2)));
    stack().undo();
    EXPECT_THAT(state().allTags(), ElementsAre(Pair("print", 2), Pair("web", 1)));
    commands().deleteTag("print");
    stack().undo();
    EXPECT_THAT(state().allTags(), ElementsAre(Pair("print", 2), Pair("web", 1)));
    stack().undo();
    stack().undo();
    stack().undo();
    EXPECT_THAT(state().favorites(), IsEmpty());
    EXPECT_FALSE(stack().canUndo());
}

TEST_F(LibraryCommandsTest, PutsCollectionsBackUnderTheirIds)
{
    const auto id = commands().createCollection("Affiche", {"A"});
    ASSERT_TRUE(id);
    commands().addToCollection(*id, {"A", "B"});
    commands().renameCollection(*id, "Affiches");
    commands().deleteCollection(*id);
    EXPECT_THAT(state().collections(), IsEmpty());
    while (stack().canUndo())
        stack().undo();
    EXPECT_THAT(state().collections(), IsEmpty());
    for (int i = 0; i < 3; ++i)
        stack().redo();
    ASSERT_THAT(state().collections(), SizeIs(1));
    EXPECT_EQ(state().collections().front().name, "Affiches");
    EXPECT_THAT(state().collectionCache().at(*id), UnorderedElementsAre("A", "B"));

    state().filters = Filters{.onlyVariable = true};
    const auto smart = commands().saveFilters("Variables");
    ASSERT_TRUE(smart);
    commands().deleteSmartCollection(*smart);
    stack().undo();
    ASSERT_THAT(state().smartCollections(), SizeIs(1));
    EXPECT_EQ(state().smartCollections().front().id, *smart);
    stack().undo();
    EXPECT_THAT(state().smartCollections(), IsEmpty());
    EXPECT_TRUE(state().filters.value().onlyVariable);
}

TEST_F(LibraryCommandsTest, ActivatesManyFamiliesAtOnceAndTakesItBack)
{
    put("Polices/a.ttf");
    put("Polices/b.ttf", "italic.ttf");
    m_program = openWatching();
    LibraryCommands::Names names;
    for (const FontFamilyPointer &family : state().families())
        names.push_back(family->name);
    commands().setActive(names, true);
    waitForWork();
    EXPECT_THAT(linked(), SizeIs(2));
    stack().undo();
    waitForWork();
    EXPECT_THAT(linked(), IsEmpty());
}

} // namespace
} // namespace kerlune
