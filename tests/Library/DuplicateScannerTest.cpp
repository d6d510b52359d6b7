#include "Library/DuplicateScanner.h"

#include "Library/DuplicateGroups.h"
#include "Platform/ContentDigest.h"
#include "Support/Sha256.h"
#include "TempFolder.h"
#include "TestFonts.h"
#include "Testing.h"

#include <sys/stat.h>

#include <atomic>
#include <set>
#include <thread>

namespace kerlune {
namespace {

using Entry = DuplicateScanner::FileEntry;
using Group = DuplicateScanner::Group;
using Kind = Group::Kind;
using Report = DuplicateScanner::Report;

Report scan(const std::vector<fs::path> &places)
{
    return DuplicateScanner::scan(places, nullptr);
}

std::vector<std::string> pathsOf(const Group &group)
{
    std::vector<std::string> paths;
    for (const Entry &entry : group.entries)
        paths.push_back(entry.path);
    return paths;
}

// A font that the bytes behind its tables bring to a certain size.
std::string paddedFont(const std::string &name, std::size_t size, char last = 'x')
{
    std::string bytes = readFile(testFont(name));
    bytes.resize(size, 'x');
    bytes.back() = last;
    return bytes;
}

class DuplicateScannerTest : public testing::Test {
protected:
    std::string add(const std::string &font, const std::string &as)
    {
        writeFile(m_folder / as, readFile(testFont(font)));
        return (m_folder / as).string();
    }
    std::string write(const std::string &as, const std::string &bytes)
    {
        writeFile(m_folder / as, bytes);
        return (m_folder / as).string();
    }

    TempFolder m_folder;
};

TEST_F(DuplicateScannerTest, LooksAtFilesWithAFontsNameInAllFolders)
{
    add("plain.ttf", "fonts/PLAIN.TTF");
    add("italic.ttf", "fonts/.hidden/folder.ttf/.italic.otf");
    add("plain.woff", "fonts/plain.txt");
    const std::string empty = write("fonts/empty.otf", "");
    const std::string elsewhere = add("slanted.ttf", "elsewhere/slanted.ttf");
    fs::create_directory_symlink(m_folder / "elsewhere", m_folder / "fonts/link-to-a-folder");
    fs::create_directory_symlink(m_folder / "elsewhere", m_folder / "fonts/link-to-a-folder.ttf");
    fs::create_symlink("nowhere", m_folder / "fonts/dangling.ttf");
    fs::create_symlink("loop.ttf", m_folder / "fonts/loop.ttf");
    ASSERT_EQ(mkfifo((m_folder / "fonts/pipe.ttf").c_str(), 0600), 0);

    const Report report = scan({m_folder / "missing", m_folder / "fonts"});
    EXPECT_EQ(report.scannedFiles, 6U);
    EXPECT_THAT(report.groups, IsEmpty());
    EXPECT_THAT(report.broken,
                ElementsAre((m_folder / "fonts/dangling.ttf").string(), empty, (m_folder / "fonts/loop.ttf").string(),
                            (m_folder / "fonts/pipe.ttf").string()));

    EXPECT_EQ(scan({m_folder / "fonts/link-to-a-folder"}).scannedFiles, 1U); // a link that is given itself
    EXPECT_EQ(scan({m_folder / "fonts/plain.txt", elsewhere}).scannedFiles, 2U);
}

TEST_F(DuplicateScannerTest, TakesALinkAndItsTargetForOneFile)
{
    const std::string plain = add("plain.ttf", "library/plain.ttf");
    fs::create_directories(m_folder / "fonts");
    fs::create_symlink(plain, m_folder / "fonts/a.ttf");
    fs::create_symlink("a.ttf", m_folder / "fonts/b.ttf");
    fs::create_directory_symlink(m_folder / "library", m_folder / "other-name");
    const Report report = scan({m_folder / "fonts", m_folder / "library", m_folder / "other-name", plain});
    EXPECT_EQ(report.scannedFiles, 1U);
    EXPECT_THAT(report.groups, IsEmpty());
}

TEST_F(DuplicateScannerTest, ReadsTheNamesOfEveryFace)
{
    const auto collection = DuplicateScanner::read(testFont("collection.ttc"));
    ASSERT_TRUE(collection);
    EXPECT_THAT(collection->postScriptNames, ElementsAre("EssaiCollection-Regular", "EssaiCollection-Bold"));
    EXPECT_EQ(collection->size, fs::file_size(testFont("collection.ttc")));
    EXPECT_EQ(collection->family, "Essai Collection");
    EXPECT_EQ(collection->style, "Regular");
    EXPECT_EQ(collection->version, "Version 1.000");

    EXPECT_THAT(DuplicateScanner::read(testFont("variable.ttf"))->postScriptNames,
                UnorderedElementsAre("EssaiVariable-Regular", "EssaiVariable-Gras", "EssaiVariable-CondensedLight",
                                     "EssaiVariable-Slanted"));
    EXPECT_THAT(DuplicateScanner::read(testFont("names-no-postscript.ttf"))->postScriptNames, IsEmpty());
    EXPECT_EQ(DuplicateScanner::read(testFont("names-no-family.ttf"))->version, std::nullopt);
    for (const char *name : {"empty.ttf", "text.ttf", "broken.woff", "missing.ttf"})
        EXPECT_FALSE(DuplicateScanner::read(testFont(name))) << name;
}

TEST_F(DuplicateScannerTest, FindsCopiesByTheirContent)
{
    const std::string bytes = paddedFont("plain.ttf", 100'000);
    const std::string large = paddedFont("italic.ttf", 2'500'000);
    const std::string first = write("a/first.ttf", bytes);
    const std::string second = write("b/second.otf", bytes);
    const std::string third = write("b/third.woff2", bytes);
    write("b/large.ttf", large);
    write("b/last-byte.ttf", paddedFont("slanted.ttf", 2'500'000, 'y')); // of that size too

    const Report report = scan({m_folder / "b", m_folder / "a"});
    ASSERT_EQ(report.groups.size(), 1U); // and equal files are no conflict of their name
    const Group &group = report.groups.front();
    EXPECT_EQ(group.kind, Kind::identical);
    EXPECT_EQ(group.key, sha256Hex(bytes));
    EXPECT_THAT(pathsOf(group), ElementsAre(second, third, first));
    EXPECT_EQ(group.reclaimable(), 200'000U);

    write("b/again.ttf", large);
    EXPECT_EQ(scan({m_folder / "b"}).groups.front().key, sha256Hex(large));
}

TEST_F(DuplicateScannerTest, FindsDifferentFilesOfOnePostScriptName)
{
    const std::string a = add("two-a.ttf", "a.ttf");
    add("two-a.ttf", "a-copy.ttf");
    const std::string b = add("two-b.ttf", "b.ttf");
    const Report report = scan({a, m_folder.path()});

    const auto conflicts = report.groupsOf(Kind::psNameConflict);
    ASSERT_EQ(conflicts.size(), 1U);
    EXPECT_EQ(conflicts.front().key, "EssaiDouble-Regular");
    EXPECT_THAT(pathsOf(conflicts.front()), ElementsAre(a, b)); // of two copies the first

    ASSERT_EQ(report.groups.size(), 3U);
    EXPECT_EQ(report.groups[1].kind, Kind::versionDrift);
    EXPECT_EQ(report.groups[1].key, "Essai Double Regular");
    EXPECT_EQ(report.groups[1].entries.front().path, b);
    EXPECT_EQ(report.groups[2].kind, Kind::identical);
    EXPECT_EQ((std::set{report.groups[0].id, report.groups[1].id, report.groups[2].id}).size(), 3U);
}

// A file that vanishes or changes between the reading and the comparison is left out of the comparison.
TEST_F(DuplicateScannerTest, SurvivesFilesThatChangeMeanwhile)
{
    const std::string bytes = paddedFont("plain.ttf", 50'000);
    for (const char *name : {"a.ttf", "b.ttf", "gone.ttf", "pipe.ttf", "longer.ttf", "shorter.ttf"})
        write(name, bytes);
    const std::vector<fs::path> places{m_folder.path()};
    const Report report = DuplicateScanner::scan(places, [&](const std::string &status) {
        if (status != "Comparaison des fichiers…")
            return;
        fs::remove(m_folder / "gone.ttf");
        fs::remove(m_folder / "pipe.ttf");
        mkfifo((m_folder / "pipe.ttf").c_str(), 0600);
        fs::resize_file(m_folder / "longer.ttf", 50'001);
        fs::resize_file(m_folder / "shorter.ttf", 49'999);
    });
    const auto identical = report.groupsOf(Kind::identical);
    ASSERT_EQ(identical.size(), 1U);
    EXPECT_THAT(pathsOf(identical.front()), ElementsAre((m_folder / "a.ttf").string(), (m_folder / "b.ttf").string()));
    // Nothing is known to equal the others, so each of them counts for itself.
    const auto conflicts = report.groupsOf(Kind::psNameConflict);
    ASSERT_EQ(conflicts.size(), 1U);
    EXPECT_EQ(conflicts.front().entries.size(), 5U);
}

TEST_F(DuplicateScannerTest, TellsHowFarItIsOneCallAtATime)
{
    for (int i = 0; i < 300; ++i)
        add("plain.ttf", std::to_string(i) + ".ttf");
    std::vector<std::string> statuses;
    std::atomic<int> callers = 0;
    const std::vector<fs::path> places{m_folder.path()};
    DuplicateScanner::scan(places, [&](const std::string &status) {
        EXPECT_EQ(++callers, 1);
        std::this_thread::yield(); // others would come in now
        statuses.push_back(status);
        --callers;
    });

    std::vector<std::string> expected{"Inventaire des fichiers…"};
    for (int i = 1; i <= 300; ++i)
        expected.push_back("Lecture " + std::to_string(i) + " / 300");
    expected.insert(expected.end(), {"Recherche des conflits de nom…", "Comparaison des fichiers…"});
    for (int i = 1; i <= 300; ++i)
        expected.push_back("Empreintes " + std::to_string(i) + " / 300");
    EXPECT_EQ(statuses, expected);
}

Entry font(const std::string &path, const std::string &family, const std::string &style,
           const std::optional<std::string> &version, std::uint64_t size = 10)
{
    return {path, size, {}, family, style, version};
}

TEST(DuplicateGroups, ListTheVersionsOfOneFontNewestFirst)
{
    const std::vector<Entry> entries{
        font("/b", "Inter", "Bold", "Version 2.001;PS 2;hotconv 1.0"),
        font("/none", "Inter", "Bold", std::nullopt),
        font("/word", "Inter", "Bold", "Version nan"),
        font("/ten", "Inter", "Bold", "10.0"),
        font("/a", "Inter", "Bold", "2.001"),
        font("/old", "Inter", "Bold", "Version 1.900"),
        font("/same-1", "Inter", "Regular", "Version 1"),
        font("/same-2", "Inter", "Regular", "Version 1"),
        font("/no-family-1", "", "Bold", "Version 1"),
        font("/no-family-2", "", "Bold", "Version 2"),
        font("/joined-1", "A B", "C", "Version 1"), // reads like the next one, but is another font
        font("/joined-2", "A", "B C", "Version 2"),
    };
    const auto groups = versionDrifts(entries);
    ASSERT_EQ(groups.size(), 1U);
    EXPECT_EQ(groups.front().key, "Inter Bold");
    EXPECT_THAT(pathsOf(groups.front()), ElementsAre("/ten", "/a", "/b", "/old", "/word"));
}

TEST(DuplicateGroups, CountAFileOfUnknownContentForItself)
{
    std::vector<Entry> entries(5);
    for (std::size_t i = 0; i < entries.size(); ++i)
        entries[i] = {std::to_string(i), 10, {"Name", "Name"}, {}, {}, {}};
    entries[4].postScriptNames = {"Other", "Other"};
    const auto groups = nameConflicts(entries, sharingAName(entries), {"digest", std::nullopt, "digest", {}, {}});
    ASSERT_EQ(groups.size(), 1U);
    EXPECT_THAT(pathsOf(groups.front()), ElementsAre("0", "1", "3"));
}

TEST(DuplicateGroups, ComeMostSeriousFirstThenByWhatTheyFree)
{
    const auto group = [](Kind kind, const std::string &key, std::uint64_t size) {
        return Group{"", kind, key, {font("/a", "", "", {}, 1'000), font("/b", "", "", {}, size)}};
    };
    Report report;
    report.groups = {group(Kind::identical, "i", 900), group(Kind::versionDrift, "v", 5),
                     group(Kind::psNameConflict, "b", 7), group(Kind::psNameConflict, "a", 7),
                     group(Kind::psNameConflict, "c", 8)};
    const auto conflicts = report.groupsOf(Kind::psNameConflict);
    EXPECT_EQ(Report::totalReclaimable(conflicts), 22U);
    sortBySeverity(report.groups);
    std::vector<std::string> keys;
    for (const auto *groups : {&conflicts, &std::as_const(report.groups)}) {
        for (const Group &one : *groups)
            keys.push_back(one.key);
    }
    EXPECT_THAT(keys, ElementsAre("c", "a", "b", "c", "a", "b", "v", "i"));
}

TEST(ContentDigest, IsAbsentUnlessTheWholeFileWasRead)
{
    const TempFolder folder;
    writeFile(folder / "file", "abc");
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    std::array<std::uint8_t, 2> buffer{}; // smaller than the file
    EXPECT_EQ(contentDigest(folder / "file", 3, buffer), sha256Hex("abc"));
    EXPECT_EQ(contentDigest(folder / "file", 2, buffer), std::nullopt);
    EXPECT_EQ(contentDigest(folder / "file", 4, buffer), std::nullopt);
    EXPECT_EQ(contentDigest(folder / "pipe", 0, buffer), std::nullopt);
    EXPECT_EQ(contentDigest(folder / "missing", 0, buffer), std::nullopt);
    EXPECT_EQ(contentDigest("/sys/devices/system/cpu/online", 4096, buffer), std::nullopt); // ends before its size
    EXPECT_EQ(contentDigest("/proc/self/mem", 0, buffer), std::nullopt);                    // fails when it is read
}

} // namespace
} // namespace kerlune
