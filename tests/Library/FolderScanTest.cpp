#include "Library/FolderScan.h"

#include "TempFolder.h"
#include "Testing.h"

#include <sys/stat.h>
#include <unistd.h>

namespace kerlune {
namespace {

std::vector<std::string> below(const TempFolder &folder, std::initializer_list<const char *> names)
{
    std::vector<std::string> paths;
    for (const char *name : names)
        paths.push_back(folder / name);
    return paths;
}

TEST(FolderScan, TakesFontsByExtensionAndSkipsHiddenAndPackages)
{
    const TempFolder folder;
    for (const char *name : {"b.OTF", "sub/a.ttf", "sub/deep/er/c.Ttc", "d.otc", "e.dfont", "été\n.ttf", "f.woff",
                             "g.woff2", "notes.txt", ".hidden.ttf", "._b.otf", ".hidden/h.ttf", "Suite.app/i.ttf",
                             "Livre.RTFD/sub/j.ttf", "no-extension", "app/k.ttf", "bad\xFF.ttf"})
        writeFile(folder / name, "");
    fs::create_directories(folder / "folder.ttf/sub");
    ASSERT_EQ(mkfifo((folder / "pipe.ttf").c_str(), 0600), 0);
    fs::create_symlink(folder / "b.OTF", folder / "link.ttf");
    fs::create_symlink(folder / "missing", folder / "dangling.ttf");
    fs::create_directory_symlink(folder.path(), folder / "sub/around");
    EXPECT_EQ(scanFolder(folder.path()), below(folder, {"app/k.ttf", "b.OTF", "d.otc", "e.dfont", "link.ttf",
                                                        "sub/a.ttf", "sub/deep/er/c.Ttc", "été\n.ttf"}));
    EXPECT_EQ(scanFolder(folder.path(), folder / "sub").size(), 6U);
    EXPECT_THAT(scanFolder(folder / "missing"), IsEmpty());
    EXPECT_THAT(scanFolder(folder / "b.OTF"), IsEmpty());

    std::stop_source stopped;
    stopped.request_stop();
    EXPECT_THAT(scanFolder(folder.path(), {}, stopped.get_token()), IsEmpty());
}

TEST(FolderScan, PassesOverASubfolderThatMayNotBeRead)
{
    const TempFolder folder;
    for (const char *name : {"a/1.ttf", "closed/2.ttf", "z/3.ttf"})
        writeFile(folder / name, "");
    fs::permissions(folder.path(), fs::perms::all);
    fs::permissions(folder / "closed", fs::perms::none);
    const uid_t self = geteuid(); // root, whom no permission keeps out, becomes nobody
    ASSERT_EQ(seteuid(self == 0 ? 65534 : self), 0);
    EXPECT_EQ(scanFolder(folder.path()), below(folder, {"a/1.ttf", "z/3.ttf"}));
    EXPECT_THAT(scanFolder(folder / "closed"), IsEmpty());
    ASSERT_EQ(seteuid(self), 0);
    fs::permissions(folder / "closed", fs::perms::owner_all);
}

TEST(FolderScan, NormalisesPaths)
{
    const TempFolder folder;
    const fs::path real = fs::canonical(folder.path());
    fs::create_directories(real / "a/b");
    fs::create_directory_symlink(real / "a", real / "link");
    const std::pair<fs::path, fs::path> cases[]{{real / "a/b/", real / "a/b"},
                                                {real / "link/b", real / "a/b"},
                                                {real / "a/./b/../b", real / "a/b"},
                                                {real / "link/missing/", real / "a/missing"},
                                                {"/", "/"}};
    for (const auto &[path, normal] : cases)
        EXPECT_EQ(normalisedPath(path), normal) << path;
}

} // namespace
} // namespace kerlune
