#include "Events.h"
#include "Platform/Linux/InotifyEventStream.h"
#include "TempFolder.h"
#include "Testing.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <random>
#include <thread>

namespace kerlune {
namespace {

const std::atomic<bool> kNeverStopping = false;

class InotifyTreeTest : public testing::Test {
protected:
    fs::path root() const { return m_home / "root"; }
    void makeFolders(std::initializer_list<const char *> names) const
    {
        for (const char *name : names)
            fs::create_directories(root() / name);
    }
    static bool sawChange(InotifyTree &tree) { return tree.readEvents().changed; }
    static bool readAll(InotifyTree &tree) // whether anything was seen
    {
        bool changed = false;
        while (sawChange(tree))
            changed = true;
        return changed;
    }

    TempFolder m_home;
};

TEST_F(InotifyTreeTest, FollowsEverySubfolderButHiddenOnes)
{
    makeFolders({"a/b/c", "d", ".hidden/e"});
    fs::create_directory_symlink(root(), root() / "d/around");
    fs::create_directories(m_home / "elsewhere/f");
    fs::create_directory_symlink(m_home / "elsewhere", root() / "link");
    InotifyTree tree(InotifyTree::Links::Leave, kNeverStopping);
    tree.follow({{root()}});
    EXPECT_EQ(tree.watchCount(), 5U);
    tree.follow({{root()}, {root() / "a"}, {m_home / "missing"}}); // a root below a root
    EXPECT_EQ(tree.watchCount(), 5U);
    tree.follow({{root() / "a"}});
    EXPECT_EQ(tree.watchCount(), 3U);

    InotifyTree following(InotifyTree::Links::Follow, kNeverStopping);
    following.follow({{root()}});
    EXPECT_EQ(following.watchCount(), 7U);
    fs::create_directories(m_home / "further/g");
    fs::create_directory_symlink(m_home / "further", root() / "a/link");
    EXPECT_TRUE(sawChange(following));
    EXPECT_EQ(following.watchCount(), 9U);
}

TEST_F(InotifyTreeTest, KeepsUpWithFoldersThatComeMoveAndGo)
{
    makeFolders({"a/b/c", "d"});
    fs::create_directories(m_home / "outside/x/y");
    InotifyTree tree(InotifyTree::Links::Leave, kNeverStopping);
    tree.follow({{root()}});
    struct Step {
        const char *what;
        std::function<void()> change;
        std::size_t folders;
    };
    const Step steps[]{
        {"created", [&] { makeFolders({"e/f/g"}); }, 8},
        {"moved within", [&] { fs::rename(root() / "a", root() / "d/a"); }, 8},
        {"written below what moved", [&] { writeFile(root() / "d/a/b/c/1", "1"); }, 8},
        {"moved out", [&] { fs::rename(root() / "d/a", m_home / "outside/a"); }, 5},
        {"moved in", [&] { fs::rename(m_home / "outside", root() / "d/outside"); }, 11},
        {"written below what came", [&] { writeFile(root() / "d/outside/x/y/1", "1"); }, 11},
        {"renamed, and a new one in its place",
         [&] {
             fs::rename(root() / "e", root() / "e2");
             makeFolders({"e"});
         },
         12},
        {"deleted", [&] { fs::remove_all(root() / "d"); }, 5},
    };
    for (const Step &step : steps) {
        step.change();
        EXPECT_TRUE(readAll(tree)) << step.what;
        EXPECT_EQ(tree.watchCount(), step.folders) << step.what;
    }
    writeFile(m_home / "outside-now", "");
    EXPECT_FALSE(sawChange(tree));
}

// A watch follows its folder: a walk may meet it under its new name before the events of the move are read.
TEST_F(InotifyTreeTest, LosesNoFolderThatMovesJustBeforeItIsLookedAt)
{
    const std::pair<const char *, std::function<void(InotifyTree &)>> cases[]{
        {"before a walk",
         [&](InotifyTree &tree) {
             fs::rename(root() / "d", root() / "e");
             tree.walkAgain();
         }},
        {"in the place of one that went",
         [&](InotifyTree &) {
             fs::create_directory(root() / "e");
             fs::remove(root() / "e");
             fs::rename(root() / "d", root() / "e");
         }},
        {"in the place of one that moved",
         [&](InotifyTree &) {
             fs::permissions(root() / "b", fs::perms::owner_all);
             fs::rename(root() / "b", root() / "e");
             fs::rename(root() / "d", root() / "b");
         }},
    };
    for (const auto &[what, change] : cases) {
        fs::remove_all(root());
        makeFolders({"b/sub", "d/sub"});
        InotifyTree tree(InotifyTree::Links::Leave, kNeverStopping);
        tree.follow({{root()}});
        change(tree);
        readAll(tree);
        EXPECT_EQ(tree.watchCount(), 5U) << what;
    }
}

// Whatever happens while events are read, in the end every folder has its watch.
TEST_F(InotifyTreeTest, FollowsEveryFolderAfterAStorm)
{
    for (unsigned seed = 1; seed <= 6; ++seed) {
        fs::remove_all(root());
        makeFolders({"a"});
        InotifyTree tree(InotifyTree::Links::Leave, kNeverStopping);
        tree.follow({{root()}});
        std::atomic<bool> isOver = false;
        std::thread storm([&] {
            std::mt19937 random(seed);
            const auto anyPath = [&] {
                fs::path path = root();
                for (unsigned depth = 1 + random() % 3; depth > 0; --depth)
                    path /= std::string(1, static_cast<char>('a' + random() % 4));
                return path;
            };
            for (int i = 0; i < 2'000; ++i) {
                std::error_code ignored;
                const unsigned what = random() % 8;
                if (what < 3)
                    fs::create_directories(anyPath(), ignored);
                else if (what < 6)
                    fs::rename(anyPath(), anyPath(), ignored);
                else if (what == 6)
                    fs::remove(anyPath(), ignored);
                else
                    fs::permissions(anyPath(), fs::perms::owner_all, ignored);
            }
            isOver = true;
        });
        while (!isOver)
            tree.readEvents();
        storm.join();
        readAll(tree);
        std::size_t folders = 1;
        for (const auto &entry : fs::recursive_directory_iterator(root()))
            folders += entry.is_directory() ? 1 : 0;
        EXPECT_EQ(tree.watchCount(), folders) << seed;
    }
}

TEST_F(InotifyTreeTest, FollowsAFolderOnceItMayBeRead)
{
    makeFolders({"closed/sub"});
    fs::permissions(m_home.path(), fs::perms::all);
    fs::permissions(root(), fs::perms::all);
    fs::permissions(root() / "closed", fs::perms::none);
    const uid_t self = geteuid(); // root, whom no permission keeps out, becomes nobody
    ASSERT_EQ(seteuid(self == 0 ? 65534 : self), 0);
    InotifyTree tree(InotifyTree::Links::Leave, kNeverStopping);
    tree.follow({{root()}});
    EXPECT_EQ(tree.watchCount(), 1U);
    EXPECT_TRUE(tree.isComplete());
    ASSERT_EQ(seteuid(self), 0);
    fs::permissions(root() / "closed", fs::perms::all);
    readAll(tree);
    EXPECT_EQ(tree.watchCount(), 3U);
}

TEST_F(InotifyTreeTest, SaysWhetherAFolderChangedSinceItWasLookedAt)
{
    makeFolders({"a/b"});
    fs::last_write_time(root() / "a/b", fs::file_time_type::clock::now() - 1000h); // as archivers restore it
    const auto later = std::chrono::system_clock::now() + 1h;
    const auto earlier = std::chrono::system_clock::now() - 1h;
    InotifyTree tree(InotifyTree::Links::Leave, kNeverStopping);
    EXPECT_FALSE(tree.follow({{root(), later}}));
    EXPECT_TRUE(tree.follow({{root(), earlier}}));
}

TEST_F(InotifyTreeTest, NoticesRootsThatComeGoOrAreReplaced)
{
    const fs::path inner = root() / "a";
    InotifyTree tree(InotifyTree::Links::Leave, kNeverStopping);
    tree.follow({{inner}});
    EXPECT_FALSE(tree.checkRoots());
    makeFolders({"a/b"});
    EXPECT_TRUE(tree.checkRoots());
    EXPECT_EQ(tree.watchCount(), 2U);
    EXPECT_FALSE(tree.checkRoots());

    fs::rename(root(), m_home / "renamed"); // of a folder above the root, inotify says nothing
    EXPECT_FALSE(sawChange(tree));
    EXPECT_TRUE(tree.checkRoots());
    EXPECT_EQ(tree.watchCount(), 0U);
    fs::rename(m_home / "renamed", root());
    EXPECT_TRUE(tree.checkRoots());
    EXPECT_EQ(tree.watchCount(), 2U);

    fs::remove_all(inner);
    makeFolders({"a"}); // often with the same inode number
    readAll(tree);
    EXPECT_TRUE(tree.checkRoots());
    EXPECT_EQ(tree.watchCount(), 1U);
    EXPECT_FALSE(tree.checkRoots());
}

// Two roots that are one folder must not report each other for ever.
TEST_F(InotifyTreeTest, TakesOneFolderByTwoNamesCalmly)
{
    makeFolders({"a"});
    fs::create_directory_symlink(root(), m_home / "other");
    InotifyTree tree(InotifyTree::Links::Follow, kNeverStopping);
    tree.follow({{root()}, {m_home / "other"}});
    EXPECT_FALSE(tree.checkRoots());
    EXPECT_FALSE(tree.checkRoots());
}

TEST_F(InotifyTreeTest, SaysWhenTheKernelLostEvents)
{
    makeFolders({"a"});
    InotifyTree tree(InotifyTree::Links::Leave, kNeverStopping);
    tree.follow({{root()}});
    const int most = std::stoi(readFile("/proc/sys/fs/inotify/max_queued_events"));
    for (int i = 0; i <= most; ++i)
        ::close(::creat((root() / ("a/" + std::to_string(i % 100))).c_str(), 0600));
    makeFolders({"a/unseen"});
    bool overflowed = false;
    for (InotifyTree::News news = tree.readEvents(); news.changed || news.overflowed; news = tree.readEvents())
        overflowed = overflowed || news.overflowed;
    EXPECT_TRUE(overflowed);
    EXPECT_EQ(tree.watchCount(), 2U);
    tree.walkAgain();
    EXPECT_EQ(tree.watchCount(), 3U);
}

TEST_F(InotifyTreeTest, SaysWhenThereAreMoreFoldersThanWatches)
{
    makeFolders({"a", "b", "c"});
    InotifyTree tree(InotifyTree::Links::Leave, kNeverStopping, 3);
    tree.follow({{root()}});
    EXPECT_FALSE(tree.isComplete());
    EXPECT_EQ(tree.watchCount(), 3U);
    fs::remove_all(root() / "a");
    fs::remove_all(root() / "b");
    readAll(tree);
    tree.walkAgain();
    EXPECT_TRUE(tree.isComplete());
}

class FileEventStreamTest : public testing::Test {
protected:
    FileEventStreamTest() { fs::create_directories(root() / "sub"); }

    fs::path root() const { return m_home / "root"; }

    void follow(InotifyEventStream &stream)
    {
        bool started = false;
        QObject::connect(&stream, &FileEventStream::started, &stream, [&] { started = true; });
        QObject::connect(&stream, &FileEventStream::changed, &stream, [this] { ++m_changes; });
        stream.start({{root(), std::chrono::system_clock::now() + 1h}});
        ASSERT_TRUE(waitUntil([&] { return started; }));
    }

    int m_argc = 0;
    QCoreApplication m_application{m_argc, nullptr};
    TempFolder m_home;
    int m_changes = 0;
};

TEST_F(FileEventStreamTest, ReportsEveryKindOfChange)
{
    InotifyEventStream stream({.latency = 5ms, .rootCheck = 20ms});
    follow(stream);
    const fs::path file = root() / "sub/a.ttf";
    const std::pair<const char *, std::function<void()>> cases[]{
        {"created", [&] { writeFile(file, "0123456789"); }},
        {"written in place",
         [&] {
             const int descriptor = ::open(file.c_str(), O_WRONLY);
             EXPECT_EQ(::pwrite(descriptor, "x", 1, 3), 1);
             ::close(descriptor);
         }},
        {"truncated", [&] { fs::resize_file(file, 2); }},
        {"renamed", [&] { fs::rename(file, root() / "sub/b.ttf"); }},
        {"moved out", [&] { fs::rename(root() / "sub/b.ttf", m_home / "c.ttf"); }},
        {"moved in", [&] { fs::rename(m_home / "c.ttf", file); }},
        {"permissions", [&] { fs::permissions(file, fs::perms::owner_read); }},
        {"folder created", [&] { fs::create_directory(root() / "sub/new"); }},
        {"file in it", [&] { writeFile(root() / "sub/new/d.ttf", ""); }},
        {"deleted", [&] { fs::remove(file); }},
        {"root gone", [&] { fs::rename(root(), m_home / "away"); }},
        {"root back", [&] { fs::rename(m_home / "away", root()); }},
        {"file in it again", [&] { writeFile(root() / "sub/new/e.ttf", ""); }},
    };
    for (const auto &[what, change] : cases) {
        // Reports of the step before may still be under way: the tree must have come to rest.
        for (int seen = -1; seen != m_changes;) {
            seen = m_changes;
            QElapsedTimer rest;
            rest.start();
            waitUntil([&] { return rest.elapsed() > 60; });
        }
        const int before = m_changes;
        change();
        EXPECT_TRUE(waitUntil([&] { return m_changes > before; })) << what;
    }
}

TEST_F(FileEventStreamTest, ReportsTheFirstChangeAtOnceAndGathersTheOthers)
{
    InotifyEventStream stream({.latency = 400ms});
    follow(stream);
    QElapsedTimer since;
    since.start();
    writeFile(root() / "first", "");
    ASSERT_TRUE(waitUntil([&] { return m_changes == 1; }));
    EXPECT_LT(since.elapsed(), 300);
    for (int i = 0; i < 50; ++i)
        writeFile(root() / std::to_string(i), "");
    ASSERT_TRUE(waitUntil([&] { return since.elapsed() > 700; }));
    EXPECT_EQ(m_changes, 2);
}

TEST_F(FileEventStreamTest, ReportsFromTimeToTimeWhatItCannotFollow)
{
    InotifyEventStream stream({.mostWatches = 1, .latency = 1ms, .rescan = 30ms});
    testing::internal::CaptureStderr();
    follow(stream);
    EXPECT_TRUE(waitUntil([&] { return m_changes >= 3; }));
    stream.stop();
    const std::string log = testing::internal::GetCapturedStderr();
    EXPECT_THAT(log, HasSubstr("max_user_watches"));
    EXPECT_EQ(log.find("max_user_watches"), log.rfind("max_user_watches")); // once
}

} // namespace
} // namespace kerlune
