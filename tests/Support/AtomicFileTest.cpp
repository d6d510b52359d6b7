#include "Support/AtomicFile.h"

#include "TempFolder.h"
#include "Testing.h"

#include <sys/resource.h>

#include <csignal>

namespace kerlune {
namespace {

TEST(AtomicFile, ReplacesTheWholeFileAndLeavesNothingElse)
{
    const TempFolder folder;
    const auto path = folder / "new/sub/état.json";
    ASSERT_TRUE(writeFileAtomically(path, "a longer first version"));
    ASSERT_TRUE(writeFileAtomically(path, std::string_view("b\0c", 3)));
    EXPECT_EQ(readFile(path), std::string("b\0c", 3));
    EXPECT_EQ(std::distance(fs::directory_iterator(path.parent_path()), {}), 1);
}

TEST(AtomicFile, SaysWhyItFailedAndKeepsTheOldFile)
{
    const TempFolder folder;
    writeFile(folder / "file", "old");
    const auto written = writeFileAtomically(folder / "file/below", "new");
    ASSERT_FALSE(written);
    EXPECT_FALSE(written.error().empty());
    EXPECT_EQ(readFile(folder / "file"), "old");
}

// A limit on the size of files stands for a full disk: in both cases the first bytes are taken and the others refused.
TEST(AtomicFile, KeepsTheOldFileWhenTheNewOneFindsNoRoom)
{
    const TempFolder folder;
    writeFile(folder / "file", "old");
    rlimit before = {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto formerHandler = signal(SIGXFSZ, SIG_IGN);
    const rlimit small{4, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    const auto written = writeFileAtomically(folder / "file", "a new version");
    setrlimit(RLIMIT_FSIZE, &before);
    signal(SIGXFSZ, formerHandler);
    ASSERT_FALSE(written);
    EXPECT_EQ(written.error(), "File too large"); // the system's own words
    EXPECT_EQ(readFile(folder / "file"), "old");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 1);
}

} // namespace
} // namespace kerlune
