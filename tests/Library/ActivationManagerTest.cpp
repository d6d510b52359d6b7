#include "Library/ActivationManager.h"

#include "Library/StateFile.h"
#include "LibraryHome.h"

#include <QCoroTask>

namespace kerlune {
namespace {

class ActivationManagerTest : public LibraryHome {
protected:
    bool activate(std::vector<std::string> paths) { return QCoro::waitFor(m_manager.activate(std::move(paths))); }
    bool deactivate(std::vector<std::string> paths) { return QCoro::waitFor(m_manager.deactivate(std::move(paths))); }

    // What the next process would find.
    std::set<std::string> afterLaunch()
    {
        ActivationManager next(m_registry, m_directories);
        QCoro::waitFor(next.reapplyOnLaunch());
        const auto links = linked();
        EXPECT_EQ(next.activePaths(), std::set<std::string>(links.begin(), links.end()));
        return next.activePaths();
    }

    ActivationManager m_manager{m_registry, m_directories};
};

TEST_F(ActivationManagerTest, ShowsFilesToEveryProgramAndRemembersThem)
{
    const std::string a = put("library/a.ttf");
    const std::string b = put("library/b.ttf", "italic.ttf");
    const std::string bytes = readFile(a);
    EXPECT_TRUE(activate({b, a, b}));
    EXPECT_THAT(m_manager.activePaths(), ElementsAre(a, b));
    EXPECT_EQ(m_manager.lastError(), std::nullopt);
    EXPECT_THAT(namesInFcList(), SizeIs(2));
    EXPECT_EQ(readFile(stateFile("activation.json")), "[\n  \"" + a + "\",\n  \"" + b + "\"\n]\n");

    EXPECT_TRUE(deactivate({a, "/never/activated.ttf"}));
    EXPECT_THAT(m_manager.activePaths(), ElementsAre(b));
    EXPECT_THAT(namesInFcList(), SizeIs(1));
    EXPECT_EQ(readJson("activation.json"), nlohmann::json{b});
    EXPECT_EQ(readFile(a), bytes);
}

TEST_F(ActivationManagerTest, AsksTheSystemOnlyForWhatIsNew)
{
    const std::string a = put("library/a.ttf");
    activate({a});
    fs::remove_all(activationLinksFolder(m_directories));
    EXPECT_TRUE(activate({a}));
    EXPECT_THAT(linked(), IsEmpty());
}

TEST_F(ActivationManagerTest, SummarisesTheFilesThatFailed)
{
    std::vector<std::string> paths{put("library/text.ttf", "text.ttf"), m_home / "missing.ttf",
                                   std::string(5'000, '/')};
    for (int i = 0; i < 7; ++i)
        paths.push_back(put("library/" + std::to_string(i) + ".ttf"));
    EXPECT_FALSE(activate(paths));
    EXPECT_EQ(m_manager.lastError(), "« text.ttf » : format autre que TrueType et OpenType (3 fichiers)");
    EXPECT_THAT(m_manager.failures(), SizeIs(3));
    EXPECT_THAT(m_manager.activePaths(), SizeIs(10));
    EXPECT_THAT(linked(), SizeIs(7));

    EXPECT_TRUE(deactivate({paths[3]})); // a call that succeeds clears the error
    EXPECT_EQ(m_manager.lastError(), std::nullopt);
}

TEST_F(ActivationManagerTest, RunsItsOperationsInTheOrderOfTheCalls)
{
    const std::string a = put("library/a.ttf");
    auto activating = m_manager.activate({a});
    auto deactivating = m_manager.deactivate({a});
    auto again = m_manager.activate({a});
    EXPECT_TRUE(QCoro::waitFor(std::move(again)));
    EXPECT_THAT(linked(), ElementsAre(a));
    EXPECT_EQ(readJson("activation.json"), nlohmann::json{a});
}

TEST_F(ActivationManagerTest, BringsFileAndRegistrationsInLineAtLaunch)
{
    const std::string gone = put("library/gone.ttf");
    const std::string lost = put("library/lost.ttf", "italic.ttf");
    const std::string kept = put("library/kept.ttf", "family-9.ttf");
    const std::string unsaved = put("library/unsaved.ttf", "family-10.ttf");
    activate({gone, lost, kept});
    const FontLinks links(activationLinksFolder(m_directories));
    links.remove(std::array{lost}); // a process killed before it wrote its deactivation down
    links.add(std::array{unsaved}); // and one that activated
    fs::remove(gone);
    writeFile(activationLinksFolder(m_directories) / "hand-made.ttf", readFile(unsaved));
    EXPECT_THAT(afterLaunch(), ElementsAre(kept, lost));
    EXPECT_EQ(readJson("activation.json"), (nlohmann::json{kept, lost}));
    EXPECT_THAT(namesInFcList(), SizeIs(3));
}

// The registrations are all that is left of what the user chose.
TEST_F(ActivationManagerTest, TakesTheRegistrationsAtTheirWordWhereTheFileSaysNothing)
{
    const std::string a = put("library/a.ttf");
    const std::string b = put("library/b.ttf");
    activate({a});
    for (const char *content : {"", "{\"a\": 1}", "[1]", "[\"/a.ttf\"", "nonsense"}) {
        writeFile(stateFile("activation.json"), content);
        EXPECT_THAT(ActivationManager(m_registry, m_directories).activePaths(), IsEmpty()) << content;
        EXPECT_THAT(afterLaunch(), ElementsAre(a)) << content;
        EXPECT_EQ(readFile(stateFile("activation.json")), content);
    }
    fs::remove(stateFile("activation.json"));
    EXPECT_THAT(afterLaunch(), ElementsAre(a));
    EXPECT_EQ(readJson("activation.json"), nlohmann::json{a});

    writeFile(stateFile("activation.json"), "nonsense");
    activate({b});
    EXPECT_EQ(readJson("activation.json"), (nlohmann::json{a, b}));
    EXPECT_EQ(readFile(stateFile("activation.json.unreadable-1")), "nonsense");
}

TEST_F(ActivationManagerTest, KeepsWhatOtherProcessesChanged)
{
    const std::string a = put("library/a.ttf");
    const std::string b = put("library/b.ttf");
    const std::string c = put("library/c.ttf");
    activate({a, b});
    ActivationManager other(m_registry, m_directories);
    QCoro::waitFor(other.deactivate({a}));
    QCoro::waitFor(other.activate({c}));
    EXPECT_TRUE(activate({a})); // which the other process has deactivated since
    EXPECT_THAT(m_manager.activePaths(), ElementsAre(a, b, c));
    EXPECT_EQ(readJson("activation.json"), (nlohmann::json{a, b, c}));
    EXPECT_THAT(linked(), ElementsAre(a, b, c));
}

TEST_F(ActivationManagerTest, ChangesNothingWhileAnotherProcessHoldsTheList)
{
    const std::string a = put("library/a.ttf");
    const std::string b = put("library/b.ttf");
    activate({a});
    const auto file = StateFile::open(stateFile("activation.json"));
    ActivationManager hasty(m_registry, m_directories, 30ms);
    EXPECT_FALSE(QCoro::waitFor(hasty.activate({b})));
    EXPECT_THAT(*hasty.lastError(), HasSubstr("tenu par un autre programme"));
    EXPECT_THAT(linked(), ElementsAre(a));
    EXPECT_THAT(hasty.activePaths(), ElementsAre(a));
    file->close();
    EXPECT_TRUE(activate({b}));
}

TEST_F(ActivationManagerTest, PassesOverPathsThatNoFileCanHave)
{
    const std::string a = put("library/a.ttf");
    writeFile(stateFile("activation.json"), "[\"" + a + "\\u0000x.ttf\", \"relative.ttf\", \"" + a + "\"]");
    EXPECT_THAT(afterLaunch(), ElementsAre(a));
}

TEST_F(ActivationManagerTest, SaysWhenItCannotWriteDownWhatIsActive)
{
    writeFile(m_directories.applicationSupport, "a file in the place of the folder");
    const std::string a = put("library/a.ttf");
    EXPECT_TRUE(activate({a}));
    EXPECT_THAT(m_manager.activePaths(), ElementsAre(a));
    ASSERT_TRUE(m_manager.saveError());
    EXPECT_THAT(*m_manager.saveError(), HasSubstr("activation.json » impossible"));
}

} // namespace
} // namespace kerlune
