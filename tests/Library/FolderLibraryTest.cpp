#include "Library/FolderLibrary.h"

#include "Library/FolderScan.h"
#include "LibraryHome.h"

#include <QCoroTask>
#include <QElapsedTimer>
#include <QSemaphore>
#include <QThreadPool>

#include <cstdlib>
#include <thread>

namespace kerlune {
namespace {

using Case = FolderLibrary::AddError::Case;

class FolderLibraryTest : public LibraryHome {
protected:
    std::int64_t add(const fs::path &path)
    {
        const auto added = QCoro::waitFor(m_library.add(path));
        return added ? *added : -1;
    }
    Case refusalOf(const fs::path &path)
    {
        const auto added = QCoro::waitFor(m_library.add(path));
        EXPECT_FALSE(added) << path;
        return added ? Case{} : added.error().kind;
    }
    void rescan() { QCoro::waitFor(m_library.rescanAll()); }
    std::string idOf(const std::string &name) const
    {
        for (const WatchedFolder &folder : m_library.folders()) {
            if (fs::path(folder.path).filename() == name)
                return folder.id;
        }
        return {};
    }
    std::vector<std::string> filesOf(const std::string &name) const
    {
        const auto files = m_library.files().find(idOf(name));
        return files == m_library.files().end() ? std::vector<std::string>() : *files->second;
    }
    std::vector<std::string> paths(const FolderLibrary &library) const
    {
        std::vector<std::string> paths;
        for (const WatchedFolder &folder : library.folders())
            paths.push_back(folder.path);
        return paths;
    }

    ActivationManager m_activation{m_registry, m_directories};
    InotifyEventStream m_stream{{.latency = 5ms, .rootCheck = 20ms}};
    FolderLibrary m_library{m_activation, m_registry, m_stream, m_directories, 40ms};
};

TEST_F(FolderLibraryTest, MakesFilesUsableAtOnceAndRemembersTheFolder)
{
    const std::string a = put("Polices/a.ttf");
    const std::string b = put("Polices/sub/b.OTF", "italic.ttf");
    fs::create_directory_symlink(m_home / "Polices", m_home / "lien");
    EXPECT_EQ(add(m_home / "lien/../lien/"), 2);
    const WatchedFolder folder = m_library.folders().at(0);
    EXPECT_EQ(folder.path, m_home / "Polices");
    EXPECT_FALSE(folder.autoActivate);
    EXPECT_THAT(m_processFonts->paths(), ElementsAre(a, b));
    EXPECT_THAT(filesOf("Polices"), ElementsAre(a, b));
    EXPECT_THAT(linked(), IsEmpty());
    EXPECT_EQ(readFile(stateFile("watched-folders.json")),
              "[\n  {\n    \"autoActivate\": false,\n    \"id\": \"" + folder.id +
                  "\",\n    \"isManagedLibrary\": false,\n    \"path\": \"" + folder.path + "\"\n  }\n]\n");
    EXPECT_EQ(m_library.folder(folder.id), folder);
    EXPECT_EQ(m_library.folderContaining(b), folder);
    EXPECT_EQ(m_library.folderContaining(folder.path + "2/a.ttf"), std::nullopt);

    const FolderLibrary next(m_activation, m_registry, m_stream, m_directories);
    EXPECT_EQ(next.folders(), m_library.folders());
}

TEST_F(FolderLibraryTest, RefusesInTheOrderSystemWatchedNestedEmpty)
{
    writeFile(stateFile("migration-manifest.json"), "[{\"from\": \"a\", \"to\": \"b\"}]");
    put("Polices/a.ttf");
    put("data/fonts/Sub/a.ttf");
    put("data/Kerlune/Library/a.ttf");
    writeFile(m_home / "web/a.woff", "");
    // A system folder that was listed by hand is refused as such, not as listed.
    const std::string listed = m_home / "Library/Fonts";
    writeFile(stateFile("watched-folders.json"),
              R"([{"id":"1","path":")" + listed + R"(","autoActivate":false,"isManagedLibrary":false}])");
    FolderLibrary library(m_activation, m_registry, m_stream, m_directories);
    library.refreshManagedLibraryEntry();
    ASSERT_TRUE(QCoro::waitFor(library.add(m_home / "Polices")));
    const std::string system = "Les dossiers de polices du système sont déjà gérés par macOS.";
    const std::string empty = "Aucune police (OTF, TTF, TTC, DFONT) dans ce dossier.";
    const std::tuple<fs::path, Case, std::string> cases[]{
        {listed, Case::systemFolder, system},
        {m_home / "data/fonts/Sub", Case::systemFolder, system},
        {"/usr/share/fonts/truetype", Case::systemFolder, system},
        {"/System/Library/Fonts", Case::systemFolder, system},
        {m_home / "Polices", Case::alreadyWatched, "Ce dossier est déjà surveillé."},
        {m_home / "Polices/none", Case::nested, "Ce dossier est déjà couvert par « Polices »."},
        {m_home / "data/Kerlune/Library/x", Case::nested, "Ce dossier est déjà couvert par « Bibliothèque Kerlune »."},
        {m_home / "web", Case::empty, empty},
        {m_home / "missing", Case::empty, empty},
    };
    for (const auto &[path, kind, message] : cases) {
        const auto added = QCoro::waitFor(library.add(path));
        ASSERT_FALSE(added) << path;
        EXPECT_EQ(added.error().kind, kind) << path;
        EXPECT_EQ(added.error().description(), message);
    }
    // Around a system folder, and around a watched one, is allowed. What Kerlune activates is not found there.
    QCoro::waitFor(m_activation.activate({put("data/b.ttf")}));
    const auto around = QCoro::waitFor(library.add(m_home.path()));
    ASSERT_TRUE(around);
    EXPECT_EQ(*around, 4);
    EXPECT_THAT(library.folders(), SizeIs(4));
}

TEST_F(FolderLibraryTest, AppliesAScanAsTheDifferenceToTheLast)
{
    const std::string a = put("Polices/a.ttf");
    const std::string b = put("Polices/b.ttf", "italic.ttf");
    add(m_home / "Polices");
    QCoro::waitFor(m_library.setAutoActivate(idOf("Polices"), true));
    EXPECT_THAT(linked(), ElementsAre(a, b)); // turned on: all that is there
    EXPECT_TRUE(readJson("watched-folders.json").at(0).at("autoActivate"));
    QCoro::waitFor(m_activation.deactivate({a}));

    const std::int64_t before = m_library.revision();
    const std::string c = put("Polices/c.ttf", "family-9.ttf");
    fs::remove(b);
    rescan();
    EXPECT_THAT(linked(), ElementsAre(c)); // what was deactivated by hand stays so, what went is deactivated
    EXPECT_THAT(m_processFonts->paths(), ElementsAre(a, c));
    EXPECT_THAT(filesOf("Polices"), ElementsAre(a, c));
    EXPECT_EQ(m_library.revision(), before + 1);
    rescan();
    EXPECT_EQ(m_library.revision(), before + 1);

    QCoro::waitFor(m_library.setAutoActivate(idOf("Polices"), false));
    put("Polices/d.ttf");
    rescan();
    EXPECT_THAT(linked(), ElementsAre(c)); // turned off: nothing is deactivated, nothing new activated
}

TEST_F(FolderLibraryTest, LetsAFolderGoWithAllThatItMadeAvailable)
{
    const std::string inner = put("Polices/Fonderie/a.ttf");
    const std::string outer = put("Polices/b.ttf", "italic.ttf");
    add(m_home / "Polices/Fonderie");
    add(m_home / "Polices");
    QCoro::waitFor(m_activation.activate({inner, outer}));
    EXPECT_THAT(m_library.folders(), SizeIs(2));

    // What the folder around still lists stays.
    const std::int64_t before = m_library.revision();
    QCoro::waitFor(m_library.remove(idOf("Fonderie")));
    EXPECT_EQ(m_library.revision(), before + 1);
    EXPECT_THAT(m_processFonts->paths(), ElementsAre(inner, outer));
    EXPECT_THAT(linked(), ElementsAre(inner, outer));

    QCoro::waitFor(m_library.remove("unknown"));
    QCoro::waitFor(m_library.remove(idOf("Polices")));
    EXPECT_THAT(m_library.folders(), IsEmpty());
    EXPECT_THAT(m_library.files(), IsEmpty());
    EXPECT_THAT(m_processFonts->paths(), IsEmpty());
    EXPECT_THAT(linked(), IsEmpty());
    EXPECT_TRUE(fs::exists(inner));
    EXPECT_EQ(readJson("watched-folders.json"), nlohmann::json::array());
}

TEST_F(FolderLibraryTest, TestsTheListAgainAfterTheScanOfAFolderThatIsAdded)
{
    const std::string inner = put("Polices/Fonderie/a.ttf");
    const std::string outer = put("Polices/b.ttf");
    QThreadPool *const pool = QThreadPool::globalInstance();
    pool->setMaxThreadCount(1); // folders are read in the order of the calls
    const auto addBoth = [&](const char *first, const char *second) {
        QSemaphore gate; // no scan ends before both have begun
        pool->start([&gate] { gate.acquire(); });
        auto adding = m_library.add(m_home / first);
        auto addingToo = m_library.add(m_home / second);
        gate.release();
        EXPECT_TRUE(QCoro::waitFor(std::move(adding)));
        const bool isAdded = QCoro::waitFor(std::move(addingToo)).has_value();
        EXPECT_THAT(m_library.folders(), SizeIs(1));
        EXPECT_THAT(m_library.files(), SizeIs(1));
        EXPECT_THAT(readJson("watched-folders.json"), SizeIs(1));
        const std::string name = fs::path(m_library.folders().at(0).path).filename();
        EXPECT_THAT(m_processFonts->paths(), testing::UnorderedElementsAreArray(filesOf(name)));
        QCoro::waitFor(m_library.remove(m_library.folders().at(0).id));
        return std::pair(isAdded, name);
    };
    // Of two folders that lie in each other, the one that came second absorbs the other.
    EXPECT_EQ(addBoth("Polices/Fonderie", "Polices"), (std::pair<bool, std::string>(true, "Polices")));
    EXPECT_EQ(addBoth("Polices", "Polices/Fonderie"), (std::pair<bool, std::string>(true, "Fonderie")));
    EXPECT_EQ(addBoth("Polices", "Polices"), (std::pair<bool, std::string>(false, "Polices")));

    pool->setMaxThreadCount(QThread::idealThreadCount());
}

TEST_F(FolderLibraryTest, ListsTheManagedLibraryFirstAndNeverWritesIt)
{
    const std::string managed = put("data/Kerlune/Library/a.ttf");
    put("Polices/b.ttf");
    add(m_home / "Polices");
    writeFile(stateFile("migration-manifest.json"), "[{}]");
    m_library.refreshManagedLibraryEntry();
    m_library.refreshManagedLibraryEntry();
    rescan();
    ASSERT_THAT(m_library.folders(), SizeIs(2));
    EXPECT_EQ(m_library.folders()[0], (WatchedFolder{"managed-library", managedLibrary(m_directories), false, true}));
    EXPECT_THAT(filesOf("Library"), ElementsAre(managed));
    QCoro::waitFor(m_library.remove("managed-library"));
    QCoro::waitFor(m_library.setAutoActivate("managed-library", true));
    EXPECT_TRUE(m_library.folders()[0].autoActivate);
    EXPECT_THAT(readJson("watched-folders.json"), SizeIs(1));
    for (const char *journal : {"[]", "nonsense", "{\"a\": 1}"}) {
        writeFile(stateFile("migration-manifest.json"), journal);
        m_library.refreshManagedLibraryEntry();
        EXPECT_THAT(m_library.folders(), SizeIs(1)) << journal;
    }
}

TEST_F(FolderLibraryTest, RescansOnceWhenItHasBeenQuietForAWhile)
{
    put("Polices/a.ttf");
    add(m_home / "Polices");
    class Events final : public FileEventStream {
    public:
        void start(std::vector<Tree>) override {}
        void stop() override {}
    } events;
    FolderLibrary library(m_activation, m_registry, events, m_directories, 300ms);
    int rescans = 0;
    const auto observer = library.bindableIsScanning().onValueChanged([&] { rescans += library.isScanning() ? 1 : 0; });
    QElapsedTimer since;
    since.start();
    Q_EMIT events.changed();
    waitUntil([&] { return since.elapsed() > 200; });
    Q_EMIT events.changed();
    ASSERT_TRUE(waitUntil([&] { return rescans > 0; }));
    EXPECT_GE(since.elapsed(), 490);
    ASSERT_TRUE(waitUntil([&] { return !library.isScanning() && since.elapsed() > 900; }));
    EXPECT_EQ(rescans, 1);
}

TEST_F(FolderLibraryTest, KeepsTheFilesOfAFolderThatVanishesAndFollowsItWhenItReturns)
{
    const std::string a = put("disk/Polices/a.ttf");
    put("Autres/b.ttf");
    add(m_home / "disk/Polices");
    add(m_home / "Autres");
    QCoro::waitFor(m_activation.activate({a}));
    fs::rename(m_home / "disk", m_home / "unplugged");
    rescan();
    EXPECT_THAT(filesOf("Polices"), ElementsAre(a));
    EXPECT_THAT(linked(), ElementsAre(a));
    EXPECT_THAT(m_library.folders(), SizeIs(2));

    fs::rename(m_home / "unplugged", m_home / "disk");
    rescan();
    const std::string c = put("disk/Polices/new/c.ttf");
    EXPECT_TRUE(waitUntil([&] { return filesOf("Polices").size() == 2; }));
}

TEST_F(FolderLibraryTest, SharesItsListWithOtherProcesses)
{
    for (const char *name : {"A/a.ttf", "B/b.ttf", "C/c.ttf", "D/d.ttf"})
        put(name);
    add(m_home / "A");
    InotifyEventStream stream({.latency = 5ms});
    const auto processFonts = std::make_shared<ProcessFonts>();
    LinuxFontRegistry registry(processFonts, activationLinksFolder(m_directories));
    FolderLibrary other(m_activation, registry, stream, m_directories);
    QCoro::waitFor(other.rescanAll());
    ASSERT_TRUE(QCoro::waitFor(other.add(m_home / "B")));
    add(m_home / "C");
    EXPECT_THAT(readJson("watched-folders.json"), SizeIs(3));
    EXPECT_TRUE(waitUntil([&] { return filesOf("B").size() == 1; })); // read as well, though nobody asked for it

    QCoro::waitFor(m_library.remove(idOf("A")));
    QCoro::waitFor(other.rescanAll());
    EXPECT_EQ(paths(other), paths(m_library));
    EXPECT_THAT(processFonts->paths(), ElementsAre(m_home / "B/b.ttf", m_home / "C/c.ttf"));

    const std::string id = idOf("B");
    QCoro::waitFor(other.remove(id));
    QCoro::waitFor(m_library.setAutoActivate(id, true)); // which is no longer there
    EXPECT_THAT(linked(), IsEmpty());
    add(m_home / "D");
    EXPECT_THAT(m_library.files(), SizeIs(2));
    EXPECT_THAT(m_processFonts->paths(), ElementsAre(m_home / "C/c.ttf", m_home / "D/d.ttf"));
}

TEST_F(FolderLibraryTest, TellsOfAChangeWhenItIsDone)
{
    put("A/a.ttf");
    add(m_home / "A");
    std::size_t seen = 99;
    bool isScanning = false;
    const auto observer = m_library.bindableRevision().onValueChanged([&] {
        seen = m_library.folders().size();
        isScanning = m_library.isScanning();
    });
    QCoro::waitFor(m_library.remove(idOf("A")));
    EXPECT_EQ(seen, 0U);

    // A folder that has lost its files is empty; as long as it is, each scan counts as a change.
    const std::string b = put("B/b.ttf");
    add(m_home / "B");
    fs::remove(b);
    const std::int64_t before = m_library.revision();
    rescan();
    EXPECT_THAT(filesOf("B"), IsEmpty());
    EXPECT_THAT(m_processFonts->paths(), IsEmpty());
    rescan();
    EXPECT_GE(m_library.revision(), before + 2); // the event of the removal may have begun one more
    EXPECT_TRUE(isScanning);
    EXPECT_TRUE(waitUntil([this] { return !m_library.isScanning(); }));
}

// What a folder around already made usable is not new, and so not activated.
TEST_F(FolderLibraryTest, ActivatesOnlyFilesThatAreNewToTheProcess)
{
    put("Polices/Fonderie/a.ttf");
    writeFile(
        stateFile("watched-folders.json"),
        nlohmann::json{
            {{"id", "1"}, {"path", m_home / "Polices"}, {"autoActivate", false}, {"isManagedLibrary", false}},
            {{"id", "2"}, {"path", m_home / "Polices/Fonderie"}, {"autoActivate", true}, {"isManagedLibrary", false}}}
            .dump());
    FolderLibrary library(m_activation, m_registry, m_stream, m_directories);
    QCoro::waitFor(library.rescanAll());
    EXPECT_THAT(linked(), IsEmpty());
    put("Polices/Fonderie/b.ttf"); // both see it, and the folder around comes first
    QCoro::waitFor(library.rescanAll());
    EXPECT_THAT(linked(), IsEmpty());
}

TEST_F(FolderLibraryTest, LeavesAListThatItCannotReadAloneUntilTheNextChange)
{
    put("Polices/a.ttf");
    const char *lists[]{"nonsense", "{}", R"([{"id": "1", "path": "/a", "autoActivate": false}])",
                        R"([{"id": "1", "path": "/a", "autoActivate": 0, "isManagedLibrary": false}])"};
    for (const char *list : lists) {
        writeFile(stateFile("watched-folders.json"), list);
        FolderLibrary library(m_activation, m_registry, m_stream, m_directories);
        QCoro::waitFor(library.rescanAll());
        EXPECT_THAT(library.folders(), IsEmpty()) << list;
        EXPECT_TRUE(library.isListUnreadable()) << list;
        EXPECT_EQ(readFile(stateFile("watched-folders.json")), list);
    }
    add(m_home / "Polices");
    EXPECT_THAT(readJson("watched-folders.json"), SizeIs(1));
    EXPECT_EQ(readFile(stateFile("watched-folders.json.unreadable-1")), lists[3]);
}

TEST_F(FolderLibraryTest, WorksWithoutAPlaceToWrite)
{
    put("Polices/a.ttf");
    writeFile(m_directories.applicationSupport, "a file in the place of the folder");
    EXPECT_EQ(add(m_home / "Polices"), 1);
    EXPECT_TRUE(m_library.saveError());
    fs::remove(m_directories.applicationSupport);
    writeFile(stateFile("watched-folders.json"), "[]"); // what could not be written is not given up for it
    rescan();
    EXPECT_THAT(m_library.folders(), SizeIs(1));
}

// What nobody would write, but anybody can.
TEST_F(FolderLibraryTest, TakesNoHarmFromOddEntries)
{
    put("Polices/a.ttf");
    const fs::path odd = m_home / "odd\xFF";
    fs::create_directories(odd);
    fs::create_directory_symlink(odd, m_home / "link");
    const std::string deep = std::string(200'000, '[') + std::string(200'000, ']');
    const auto entry = [](const std::string &id, const std::string &path) {
        return R"({"id":)" + id + R"(,"path":")" + path + R"(","autoActivate":false,"isManagedLibrary":false})";
    };
    writeFile(stateFile("watched-folders.json"), "[" + entry(deep, "/tmp") + "]");
    EXPECT_TRUE(FolderLibrary(m_activation, m_registry, m_stream, m_directories).isListUnreadable());

    const std::string link = m_home / "link";
    writeFile(stateFile("watched-folders.json"),
              "[" + entry("\"1\"", link) + "," + entry("\"2\"", "") + "," + entry("\"3\"", "/tmp\\u0000x") + "]");
    FolderLibrary library(m_activation, m_registry, m_stream, m_directories);
    EXPECT_EQ(paths(library), std::vector<std::string>{link});
    EXPECT_TRUE(QCoro::waitFor(library.add(m_home / "Polices")));
    EXPECT_THAT(readJson("watched-folders.json"), SizeIs(2));

    library.remove("1");
    writeFile(stateFile("migration-manifest.json"), "[{}]");
    put("data/Kerlune/Library/a.ttf");
    library.refreshManagedLibraryEntry();
    QCoro::waitFor(library.rescanAll());
    EXPECT_THAT(m_processFonts->paths(), SizeIs(2));
    writeFile(stateFile("migration-manifest.json"), "[]");
    library.refreshManagedLibraryEntry();
    EXPECT_THAT(m_processFonts->paths(), SizeIs(1));
}

TEST_F(FolderLibraryTest, MayGoWhileItWorks)
{
    for (int i = 0; i < 200; ++i)
        put("Polices/" + std::to_string(i) + ".ttf");
    for (int moment = 0; moment < 10; ++moment) {
        auto library = std::make_unique<FolderLibrary>(m_activation, m_registry, m_stream, m_directories);
        auto adding = library->add(m_home / "Polices");
        auto scanning = library->rescanAll();
        auto removing = library->remove("unknown");
        for (int i = 0; i < moment; ++i)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 1);
        library.reset();
        QCoro::waitFor(std::move(scanning));
        QCoro::waitFor(std::move(adding));
        fs::remove(stateFile("watched-folders.json"));
    }
}

// Another process copies, moves, deletes and truncates while the folder is followed.
TEST_F(FolderLibraryTest, EqualsTheDiskAfterItWasChangedUnderLoad)
{
    for (int i = 0; i < 1'500; ++i)
        put("Polices/" + std::to_string(i % 30) + "/" + std::to_string(i) + ".ttf");
    ASSERT_EQ(add(m_home / "Polices"), 1'500);
    const std::string script = R"(
import os, random, shutil, sys
random.seed(7)
root = sys.argv[1]
folders = [os.path.join(root, str(i)) for i in range(30)]
def some_file():
    folder = random.choice(folders)
    names = os.listdir(folder) if os.path.isdir(folder) else []
    return os.path.join(folder, random.choice(names)) if names else None
for i in range(4000):
    target, file, what = random.choice(folders), some_file(), random.random()
    os.makedirs(target, exist_ok=True)
    try:
        if file is None: continue
        elif what < .4: shutil.copy(file, os.path.join(target, f'copy-{i}.ttf'))
        elif what < .6: os.rename(file, os.path.join(target, f'moved-{i}.otf'))
        elif what < .8: os.remove(file)
        elif what < .9: os.truncate(file, random.randrange(500))
        elif what < .95: os.rename(target, target + '-away'); os.rename(target + '-away', target)
        elif what < .97: shutil.move(target, root + '-outside'); shutil.move(root + '-outside', os.path.join(root, f'back-{i}'))
        elif what < .98: shutil.rmtree(target)
    except OSError as error:
        sys.exit(f'{what}: {error}')
)";
    writeFile(m_home / "churn.py", script);
    int status = -1;
    std::thread churn([&] {
        status = std::system(
            ("/usr/bin/python3 '" + (m_home / "churn.py").string() + "' '" + (m_home / "Polices").string() + "'")
                .c_str());
    });
    waitUntil([&] { return status != -1; });
    churn.join();
    ASSERT_EQ(status, 0);
    const auto onDisk = [&] {
        std::vector<std::string> files;
        for (const auto &entry : fs::recursive_directory_iterator(m_home / "Polices")) {
            if (entry.is_regular_file())
                files.push_back(entry.path());
        }
        std::sort(files.begin(), files.end());
        return files;
    }();
    ASSERT_GT(onDisk.size(), 500U);
    EXPECT_TRUE(waitUntil([&] { return filesOf("Polices") == onDisk; }));
    EXPECT_THAT(m_processFonts->paths(), testing::UnorderedElementsAreArray(onDisk));
}

} // namespace
} // namespace kerlune
