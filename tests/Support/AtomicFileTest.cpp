#include "Support/AtomicFile.h"

#include "TempFolder.h"

#include <gmock/gmock.h>

namespace kerlune {
namespace {

TEST(AtomicFile, ReplacesTheWholeFileAndLeavesNothingElse)
{
    const TempFolder folder;
    const auto path = folder / "new/sub/état.json";
    ASSERT_TRUE(writeFileAtomically(path, "a longer first version"));
    ASSERT_TRUE(writeFileAtomically(path, std::string_view("b\0c", 3)));
    EXPECT_EQ(readFile(path), std::string("b\0c", 3));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(path.parent_path()), {}), 1);
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

} // namespace
} // namespace kerlune
