#include "State/AppState.h"

#include "LibraryProgram.h"

#include <sys/stat.h>

#include <algorithm>

namespace kerlune {
namespace {

using Kind = SidebarSelection::Kind;

class AppStateTest : public LibraryHome {
protected:
    struct Program : LibraryProgram {
        using LibraryProgram::LibraryProgram;

        std::vector<std::string> names() const
        {
            std::vector<std::string> names;
            for (const FontRecordPointer &record : state.allRecords())
                names.push_back(record->postScriptName);
            std::sort(names.begin(), names.end());
            return names;
        }
    };

    std::unique_ptr<Program> open(const AppState::Delays &delays = kQuick) const
    {
        return std::make_unique<Program>(m_directories, delays);
    }

    // The messages of a load, each once.
    static std::vector<std::string> messagesOf(Program &program)
    {
        std::vector<std::string> messages;
        const auto observer =
            program.state.indexMessage.observe([&] { messages.push_back(program.state.indexMessage()); });
        program.load();
        return messages;
    }

    void watch(const std::string &folder)
    {
        const auto program = open();
        EXPECT_TRUE(QCoro::waitFor(program->state.folderLibrary().add(m_home / folder)));
    }
};

TEST_F(AppStateTest, IndexesWhenTheNumberOfFontsHasChangedAndReadsTheIndexElse)
{
    put("data/fonts/a.ttf");
    put("Polices/b.ttf", "italic.ttf");
    watch("Polices");
    EXPECT_THAT(messagesOf(*open()), ElementsAre("Lecture des dossiers surveillés…", "Analyse de 2 graisses…",
                                                 "Analyse 2 / 2", "Enregistrement…", ""));
    {
        const auto again = open();
        EXPECT_THAT(messagesOf(*again), ElementsAre("Lecture des dossiers surveillés…", "Lecture de l'index…", ""));
        EXPECT_THAT(again->names(), SizeIs(2));
        EXPECT_THAT(again->state.families(), SizeIs(2));
        EXPECT_FALSE(again->state.isIndexing());
    }
    put("Polices/c.ttf", "mono-post.ttf");
    const auto grown = open();
    EXPECT_THAT(messagesOf(*grown), Contains("Analyse de 3 graisses…"));
    EXPECT_DOUBLE_EQ(grown->state.indexProgress(), 1);
    const auto before = grown->state.library();
    QCoro::waitFor(grown->state.rebuildIndex());
    EXPECT_NE(grown->state.library(), before);
    EXPECT_THAT(grown->names(), SizeIs(3));
}

TEST_F(AppStateTest, LoadsOnceAtATime)
{
    put("data/fonts/a.ttf");
    const auto program = open();
    auto first = program->state.load();
    EXPECT_TRUE(program->state.isIndexing());
    auto second = program->state.load();
    EXPECT_TRUE(second.isReady());
    auto rebuild = program->state.rebuildIndex();
    EXPECT_TRUE(rebuild.isReady());
    QCoro::waitFor(std::move(first));
    EXPECT_THAT(program->names(), SizeIs(1));
}

TEST_F(AppStateTest, GoesAwayWhileItLoads)
{
    put("data/fonts/a.ttf");
    for (int rounds = 0; rounds < 30; ++rounds) {
        auto program = open();
        const auto loading = program->state.load();
        for (int i = 0; i < rounds; ++i)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 1);
        program.reset();
        finishBackgroundWork();
    }
}

TEST_F(AppStateTest, SaysThatTheDatabaseCannotBeOpenedAndStaysEmpty)
{
    put("data/fonts/a.ttf");
    writeFile(stateFile("index.sqlite"), std::string(4096, 'x'));
    const auto program = open();
    for (int loads = 0; loads < 2; ++loads) {
        EXPECT_THAT(program->state.loadError().value_or(""), StartsWith("Ouverture de l'index impossible : "));
        program->load();
    }
    EXPECT_FALSE(program->state.isIndexing());
    EXPECT_THAT(program->state.families(), IsEmpty());
    EXPECT_FALSE(program->state.setTag("t", {"F"}, true));
    EXPECT_FALSE(program->state.toggleFavorite("F"));
    EXPECT_FALSE(program->state.createCollection("c"));
    program->state.filters = Filters{.search = "x"};
    EXPECT_FALSE(program->state.saveCurrentFiltersAsSmartCollection("s"));
    EXPECT_EQ(program->state.filters.value().search, "x"); // it was not saved
}

TEST_F(AppStateTest, KeepsTheIndexWhenTheSystemCannotBeAsked)
{
    put("data/fonts/a.ttf");
    open()->load();
    fs::remove(m_home / "data/fonts/a.ttf");
    ASSERT_EQ(mkfifo((m_home / "data/fonts/pipe.ttf").c_str(), 0600), 0);
    const auto program = open();
    program->load();
    EXPECT_THAT(program->names(), SizeIs(1));
    EXPECT_TRUE(program->state.notice() && program->state.notice()->isError);
    QCoro::waitFor(program->state.refreshRegisteredFonts());
    EXPECT_THAT(program->names(), SizeIs(1));
}

TEST_F(AppStateTest, RefreshesOnceAfterManyNotifications)
{
    const std::string a = put("data/fonts/a.ttf");
    const auto program = open();
    program->load();
    int published = 0;
    const auto observer = program->state.library.observe([&] { ++published; });
    put("data/fonts/copie.ttf");           // the same name: a duplicate
    put("data/fonts/b.ttf", "italic.ttf"); // new
    for (int i = 0; i < 10; ++i)
        Q_EMIT program->registry.registeredFontsChanged();
    EXPECT_TRUE(waitUntil([&] { return program->state.allRecords().size() == 3; }));
    finishBackgroundWork();
    EXPECT_EQ(published, 1);
    EXPECT_THAT(program->state.duplicateFamilies(), SizeIs(1));
    // As many are written as the next start finds on offer.
    EXPECT_TRUE(waitUntil([&] { return program->state.store()->indexedCount() == 2; }));
    {
        const auto writtenAt = program->state.store()->meta("indexed_at");
        const auto another = open();
        EXPECT_THAT(messagesOf(*another), Contains("Lecture de l'index…"));
        EXPECT_TRUE(waitUntil([&] { return another->state.allRecords().size() == 3; })); // the refresh after loading
        EXPECT_EQ(program->state.store()->meta("indexed_at"), writtenAt);                // nothing new to write
    }

    fs::remove(a);
    fs::copy_file(testFont("mono-post.ttf"), m_home / "data/fonts/b.ttf", fs::copy_options::overwrite_existing);
    QCoro::waitFor(program->state.refreshRegisteredFonts());
    EXPECT_THAT(program->names(), SizeIs(2));
    const auto kept = program->state.library();
    QCoro::waitFor(program->state.refreshRegisteredFonts());
    EXPECT_EQ(program->state.library(), kept); // nothing has changed
    EXPECT_THAT(messagesOf(*open()), Contains("Lecture de l'index…"));
}

TEST_F(AppStateTest, ARefreshGivesWayToAnIndexThatIsBuiltMeanwhile)
{
    put("data/fonts/a.ttf");
    const auto program = open();
    program->load();
    put("data/fonts/b.ttf", "italic.ttf");
    auto refresh = program->state.refreshRegisteredFonts();
    put("data/fonts/c.ttf", "mono-post.ttf"); // perhaps too late for the refresh, in time for the index
    QCoro::waitFor(program->state.rebuildIndex());
    QCoro::waitFor(std::move(refresh));
    EXPECT_THAT(program->names(), SizeIs(3));
    EXPECT_EQ(program->state.store()->indexedCount(), 3);

    // What has gone is seen, but a library without any font does not take the place of a stored one.
    for (const char *name : {"a.ttf", "b.ttf", "c.ttf"})
        fs::remove(m_home / "data/fonts" / name);
    QCoro::waitFor(program->state.rebuildIndex());
    EXPECT_THAT(program->names(), IsEmpty());
    EXPECT_EQ(program->state.store()->indexedCount(), 3);
}

TEST_F(AppStateTest, ARebuildThatIsCancelledLeavesTheLibraryAsItWas)
{
    put("data/fonts/a.ttf");
    const auto program = open();
    AppState &state = program->state;
    const auto observer = state.canCancelIndexing.observe([&state] { state.cancelIndexing(); });
    program->load(); // there is nothing yet that could stay
    EXPECT_THAT(program->names(), SizeIs(1));
    EXPECT_FALSE(state.notice());

    put("data/fonts/b.ttf", "italic.ttf");
    QCoro::waitFor(state.rebuildIndex());
    EXPECT_THAT(program->names(), SizeIs(1));
    EXPECT_EQ(state.store()->indexedCount(), 1);
    EXPECT_TRUE(state.notice());
    EXPECT_FALSE(state.isIndexing() || state.canCancelIndexing());
}

TEST_F(AppStateTest, DismissesWhatHasHappenedAfterItsOwnTime)
{
    AppState::Delays delays = kQuick;
    delays.notice = 5ms;
    delays.applied = 5ms;
    const auto program = open(delays);
    AppState &state = program->state;
    state.setNotice({"Fait"});
    state.setApplyFeedback(ApplyOutcome::Applied{2, HostApp::indesign});
    EXPECT_TRUE(waitUntil([&] { return !state.notice() && !state.applyFeedback(); }));

    state.setNotice({"Fait"});
    state.setNotice({"Échec", true}); // the time begins anew, and is another one
    state.setApplyFeedback(ApplyOutcome::Applied{2, HostApp::indesign});
    state.setApplyFeedback(ApplyOutcome::NotRunning{HostApp::photoshop});
    bool isLater = false;
    QTimer::singleShot(60ms, &state, [&] { isLater = true; });
    EXPECT_TRUE(waitUntil([&] { return isLater; }));
    EXPECT_EQ(state.notice(), (Notice{"Échec", true}));
    EXPECT_EQ(state.applyFeedback(), ApplyResult(ApplyOutcome::NotRunning{HostApp::photoshop}));
    state.dismissNotice();
    EXPECT_EQ(state.notice(), std::nullopt);
}

TEST_F(AppStateTest, ComputesTheVisibleListWhenWhatItDependsOnChanges)
{
    put("data/fonts/a.ttf");
    put("data/fonts/b.ttf", "italic.ttf");
    const auto program = open();
    program->load();
    AppState &state = program->state;
    const std::string family = state.families()[0]->name;
    const auto isKept = [&](const std::function<void()> &change) {
        const auto *before = state.visibleFamilies().data();
        bool isTold = false;
        const auto connection = QObject::connect(&state, &AppState::visibleFamiliesChanged, [&] { isTold = true; });
        change();
        QObject::disconnect(connection);
        const bool isSame = state.visibleFamilies().data() == before;
        EXPECT_TRUE(isTold || isSame);
        return isSame;
    };
    EXPECT_TRUE(isKept([&] { state.previewText = "Portez ce vieux whisky"; }));
    EXPECT_TRUE(isKept([&] { state.previewSize = 80; }));
    EXPECT_FALSE(isKept([&] { state.setTag("t", {family}, true); }));
    EXPECT_FALSE(isKept([&] { state.renameTag("t", "u"); }));
    EXPECT_FALSE(isKept([&] { state.toggleFavorite(family); }));
    EXPECT_FALSE(isKept([&] { state.noteUsed(family); }));
    EXPECT_FALSE(isKept([&] { state.filters = Filters{.search = family}; }));
    EXPECT_FALSE(isKept([&] { state.createCollection("c"); }));
    EXPECT_FALSE(isKept([&] { state.saveCurrentFiltersAsSmartCollection("s"); }));
    EXPECT_FALSE(isKept([&] { state.sidebarSelection = SidebarSelection{}; }));
    EXPECT_FALSE(isKept([&] { QCoro::waitFor(state.rebuildIndex()); }));
    EXPECT_TRUE(isKept([&] { state.reloadUserData(); })); // as it was

    // Who is told of a change sees it.
    bool isNewOne = false;
    const auto observer =
        state.library.observe([&] { isNewOne = state.visibleFamilies()[0] == state.library()->families[0]; });
    QCoro::waitFor(state.rebuildIndex());
    EXPECT_TRUE(isNewOne);

    // The order of the recently used families counts, not only their number.
    const std::string other = state.families()[1]->name;
    state.noteUsed(other);
    state.sidebarSelection = SidebarSelection{Kind::recents};
    EXPECT_EQ(state.visibleFamilies()[0]->name, other);
    state.noteUsed(family);
    EXPECT_EQ(state.visibleFamilies()[0]->name, family);
}

TEST_F(AppStateTest, AsksFontsForTheirCharactersWithoutBlocking)
{
    put("data/fonts/a.ttf");
    put("data/fonts/b.ttf", "italic.ttf");
    const auto program = open();
    program->load();
    AppState &state = program->state;
    state.readGlyphsInBackground();
    const auto all = state.visibleFamilies();
    const auto isRead = [&] { return !state.isReadingGlyphs(); };

    state.filters = Filters{.requiredGlyphs = "\U0001F600"};
    if (state.isReadingGlyphs()) {               // else the other thread was done with these two at once
        EXPECT_EQ(state.visibleFamilies(), all); // what was there stands until then
    }
    state.filters = Filters{.requiredGlyphs = "H"}; // while it is read
    ASSERT_TRUE(waitUntil(isRead));
    EXPECT_EQ(state.visibleFamilies(), state.computeVisibleFamilies());

    state.filters = Filters{.requiredGlyphs = "\U0001F600"};
    const std::string id = *state.saveCurrentFiltersAsSmartCollection("visages");
    state.filters = Filters{};
    state.sidebarSelection = SidebarSelection{};
    ASSERT_TRUE(waitUntil(isRead));
    EXPECT_EQ(state.visibleFamilies(), all);
    state.sidebarSelection = SidebarSelection{.kind = Kind::smart, .key = id};
    ASSERT_TRUE(waitUntil(isRead));
    EXPECT_THAT(state.visibleFamilies(), IsEmpty());
    EXPECT_EQ(QCoro::waitFor(state.countVisibleWith(Filters{.requiredGlyphs = "H"})), 0);

    state.filters = Filters{.requiredGlyphs = "x"}; // and it goes away meanwhile
}

TEST_F(AppStateTest, TagsFollowTheirNameInTheSidebar)
{
    const auto program = open();
    AppState &state = program->state;
    EXPECT_TRUE(state.setTag(" Projet 10 ", {"A", "B"}, true));
    EXPECT_TRUE(state.setTag("Projet 9", {"B"}, true));
    EXPECT_TRUE(state.setTag("Old", {"B"}, true));
    EXPECT_FALSE(state.setTag(" \n", {"B"}, true));
    EXPECT_THAT(state.allTags(), ElementsAre(Pair("Old", 1), Pair("Projet 9", 1), Pair("Projet 10", 2)));
    state.sidebarSelection = SidebarSelection{.kind = Kind::tag, .key = "Projet 10"};
    EXPECT_FALSE(state.renameTag("Projet 10", " "));
    EXPECT_TRUE(state.renameTag("Projet 10", "Projet 10 "));
    EXPECT_THAT(state.allTags(), Contains(Pair("Projet 10", 2)));
    EXPECT_TRUE(state.renameTag("Projet 10", "Old"));
    EXPECT_EQ(state.sidebarSelection.value(), (SidebarSelection{.kind = Kind::tag, .key = "Old"}));
    EXPECT_THAT(state.tags("B"), ElementsAre("Old", "Projet 9"));
    EXPECT_TRUE(state.deleteTag("Projet 9"));
    EXPECT_EQ(state.sidebarSelection.value().kind, Kind::tag);
    EXPECT_TRUE(state.deleteTag(*state.tagsByFamily().at("B").begin())); // the text goes with the tag
    EXPECT_EQ(state.sidebarSelection.value(), SidebarSelection());
    EXPECT_THAT(state.allTags(), IsEmpty());
}

TEST_F(AppStateTest, SmartCollectionsKeepFilters)
{
    const auto program = open();
    AppState &state = program->state;
    const Filters serif{.classes = {FontClass::serif}, .languageBits = 0x8000'0000'0000'0000};
    state.filters = serif;
    EXPECT_EQ(state.saveCurrentFiltersAsSmartCollection("  "), std::nullopt);
    const std::string id = state.saveCurrentFiltersAsSmartCollection(" Titres\n").value_or("");
    EXPECT_THAT(state.smartCollections(), ElementsAre(SmartCollection{id, "Titres", serif}));
    EXPECT_EQ(state.filters.value(), Filters());
    EXPECT_EQ(state.sidebarSelection.value(), (SidebarSelection{.kind = Kind::smart, .key = id}));

    state.filters = Filters{.search = "x"};
    EXPECT_TRUE(state.renameSmartCollection(id, "Corps"));
    EXPECT_THAT(state.smartCollections(), ElementsAre(SmartCollection{id, "Corps", serif}));
    EXPECT_TRUE(state.updateSmartCollection(id));
    EXPECT_THAT(state.smartCollections(), ElementsAre(SmartCollection{id, "Corps", {.search = "x"}}));
    EXPECT_EQ(state.filters.value().search, "x");
    EXPECT_FALSE(state.updateSmartCollection("?"));
    EXPECT_FALSE(state.renameSmartCollection("?", "Autre"));
    EXPECT_FALSE(state.renameSmartCollection(id, " "));

    state.store()->saveSmartCollection({"N", "D'une autre version", "{\"weightRange\": \"?\"}"});
    state.store()->saveSmartCollection({"O", "Ancienne", "{}"});
    state.reloadSmartCollections();
    EXPECT_THAT(state.smartCollections(), SizeIs(2));
    EXPECT_TRUE(state.deleteSmartCollection("O"));
    EXPECT_EQ(state.sidebarSelection.value().kind, Kind::smart);
    EXPECT_TRUE(state.deleteSmartCollection(id));
    EXPECT_EQ(state.sidebarSelection.value(), SidebarSelection());
}

TEST_F(AppStateTest, CollectionsAndRecentsAreMirrored)
{
    const std::string path = put("data/fonts/a.ttf");
    const auto program = open();
    program->load();
    AppState &state = program->state;
    const std::string family = state.families()[0]->name;
    const std::string id = state.createCollection(" Affiche ").value_or("");
    EXPECT_EQ(state.createCollection(" "), std::nullopt);
    EXPECT_TRUE(state.addToCollection(id, {family, "Partie", family}));
    EXPECT_FALSE(state.addToCollection("?", {family}));
    EXPECT_TRUE(state.renameCollection(id, "Affiches"));
    EXPECT_THAT(state.collections(), ElementsAre(FontIndexStore::Collection{id, "Affiches"}));
    EXPECT_THAT(state.collectionCache(), ElementsAre(Pair(id, UnorderedElementsAre(family, "Partie"))));
    EXPECT_THAT(state.collectionFontPaths(id), ElementsAre(path));
    EXPECT_TRUE(state.removeFromCollection(id, {family}));
    EXPECT_THAT(state.collectionFontPaths(id), IsEmpty());
    EXPECT_TRUE(state.deleteCollection(id));
    EXPECT_THAT(state.collectionCache(), IsEmpty());
    for (int i = 0; i < 42; ++i)
        state.noteUsed("F" + std::to_string(i));
    state.noteUsed("F7");
    EXPECT_THAT(state.recents(), SizeIs(40));
    EXPECT_EQ(state.recents().front(), "F7");
}

TEST_F(AppStateTest, ShowsWhatAnotherProcessHasMade)
{
    put("data/fonts/a.ttf");
    put("Autres/d.ttf", "text.ttf");
    const std::string b = put("Polices/b.ttf", "italic.ttf");
    AppState::Delays delays = kQuick;
    delays.foreignChanges = 5ms;
    const auto window = open(delays);
    window->load();
    const auto other = open();
    EXPECT_TRUE(other->state.setTag("web", {"A"}, true));
    EXPECT_TRUE(waitUntil([&] { return window->state.tags("A") == std::vector<std::string>{"web"}; }));
    EXPECT_TRUE(window->state.setTag("titre", {"A"}, true));
    EXPECT_TRUE(QCoro::waitFor(other->state.folderLibrary().add(m_home / "Polices")));
    EXPECT_TRUE(QCoro::waitFor(other->state.activation().activate({b})));
    other->load();
    EXPECT_THAT(other->state.tags("A"), ElementsAre("titre", "web"));

    // Of one thing each changes another side.
    window->state.filters = Filters{.search = "x"};
    const std::string smart = *window->state.saveCurrentFiltersAsSmartCollection("Ancien nom");
    other->state.reloadUserData();
    other->state.filters = Filters{.search = "y"};
    EXPECT_TRUE(other->state.updateSmartCollection(smart));
    EXPECT_TRUE(window->state.renameSmartCollection(smart, "Nouveau nom"));
    EXPECT_THAT(window->state.smartCollections(), ElementsAre(SmartCollection{smart, "Nouveau nom", {.search = "y"}}));
    const std::string gone = *window->state.createCollection("Passée");
    other->state.reloadUserData();
    EXPECT_TRUE(other->state.deleteCollection(gone));
    EXPECT_FALSE(window->state.addToCollection(gone, {"A"}));
    EXPECT_THAT(window->state.store()->collectionMembers(gone), IsEmpty());
    EXPECT_TRUE(waitUntil([&] {
        return window->state.folderLibrary().folderContaining(b) &&
               window->state.activation().activePaths().contains(b);
    }));
    EXPECT_TRUE(waitUntil([&] { return window->names() == other->names(); }));
    EXPECT_THAT(window->names(), SizeIs(2));
    window->state.sidebarSelection =
        SidebarSelection{.kind = Kind::folder, .key = other->state.folderLibrary().folders()[0].id};
    EXPECT_THAT(window->state.visibleFamilies(), SizeIs(1));
    EXPECT_TRUE(QCoro::waitFor(other->state.folderLibrary().add(m_home / "Autres")));
    put("Polices/c.ttf", "mono-post.ttf"); // seen by the window itself
    EXPECT_TRUE(waitUntil([&] { return window->state.visibleFamilies().size() == 2; }));
    EXPECT_EQ(window->state.counts().byClass.size(), countFamilies(window->state.families()).byClass.size());
}

TEST_F(AppStateTest, ActivatesTheFacesThatLieInWatchedFolders)
{
    put("data/fonts/a.ttf");
    const std::string b = put("Polices/b.ttf", "italic.ttf");
    const std::string c = put("Polices/c.ttf", "mono-post.ttf");
    watch("Polices");
    const auto program = open();
    program->load();
    AppState &state = program->state;
    const auto familyOf = [&](const std::vector<std::string> &paths) {
        FontFamily family{"F", {}};
        for (const FontRecordPointer &record : state.allRecords()) {
            if (std::find(paths.begin(), paths.end(), record->filePath) != paths.end())
                family.faces.push_back(record);
        }
        return std::make_shared<const FontFamily>(family);
    };
    const auto both = familyOf({b, c});
    const auto onlySystem = familyOf({m_home / "data/fonts/a.ttf"});
    EXPECT_EQ(state.activationState(*onlySystem), ActivationState::system);
    EXPECT_EQ(state.activationState(*both), ActivationState::inactive);
    EXPECT_TRUE(QCoro::waitFor(state.setActive(onlySystem, true)));
    EXPECT_TRUE(QCoro::waitFor(state.setActive(familyOf({b}), true)));
    EXPECT_THAT(linked(), ElementsAre(b));
    EXPECT_EQ(state.activationState(*both), ActivationState::partial);
    fs::remove(c);
    EXPECT_FALSE(QCoro::waitFor(state.setActive(both, true)));
    ASSERT_TRUE(state.notice());
    EXPECT_EQ(state.notice()->text, "Activation incomplète : " + state.activation().lastError().value_or("?"));
    EXPECT_TRUE(state.notice()->isError);
    EXPECT_TRUE(QCoro::waitFor(state.setActive(familyOf({b}), false)));
    EXPECT_THAT(linked(), IsEmpty());
}

TEST_F(AppStateTest, KnowsWhatIsSelectedAndKeepsThePreview)
{
    put("data/fonts/a.ttf");
    {
        const auto program = open();
        program->load();
        AppState &state = program->state;
        EXPECT_EQ(state.previewText.value(), "Kerlune");
        EXPECT_EQ(state.previewSize.value(), 34);
        state.previewText = "Été à « l’île »";
        state.previewSize = 61.5;
        state.viewMode = ViewMode::waterfall;
        EXPECT_EQ(state.effectiveViewMode(), ViewMode::waterfall);
        state.sidebarSelection = SidebarSelection{Kind::duplicates};
        EXPECT_EQ(state.effectiveViewMode(), ViewMode::grid);
        EXPECT_EQ(state.viewMode.value(), ViewMode::waterfall);

        EXPECT_EQ(state.activeRecord(), nullptr);
        state.selectedFamily = state.families()[0]->name;
        EXPECT_EQ(state.activeRecord(), state.allRecords()[0]);
        state.selectedFamily = "Partie";
        EXPECT_EQ(state.activeRecord(), nullptr);
        state.selectedFace = state.allRecords()[0]->postScriptName;
        EXPECT_EQ(state.activeRecord(), state.allRecords()[0]);
    }
    EXPECT_EQ(open()->state.previewText.value(), "Été à « l’île »");
    EXPECT_EQ(open()->state.previewSize.value(), 61.5);
    writeFile(m_directories.configuration / "settings.ini", "[General]\npreviewText=Un, deux\npreviewSize=1e300\n");
    EXPECT_EQ(open()->state.previewText.value(), "Un, deux");
    EXPECT_EQ(open()->state.previewSize.value(), 34);
}

} // namespace
} // namespace kerlune
