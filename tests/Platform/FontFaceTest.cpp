#include "Platform/FontFace.h"

#include "Platform/FontCatalog.h"
#include "Platform/FontMetrics.h"
#include "TempFolder.h"
#include "TestFonts.h"
#include "Testing.h"

#include <sys/stat.h>

namespace kerlune {
namespace {

std::vector<std::string> namesIn(const std::string &path)
{
    std::vector<std::string> names;
    for (const FontDescriptor &font : fontsOfFile(path).fonts)
        names.push_back(font.postScriptName);
    return names;
}

TEST(FontFile, ListsTheFacesOfEveryContainer)
{
    EXPECT_THAT(namesIn(testFont("plain.ttf")), ElementsAre("EssaiPlain-Regular"));
    EXPECT_THAT(namesIn(testFont("collection.ttc")), ElementsAre("EssaiCollection-Regular", "EssaiCollection-Bold"));
    EXPECT_THAT(namesIn(testFont("variable.ttf")),
                ElementsAre("EssaiVariable-Regular", "EssaiVariable-Gras", "EssaiVariable-CondensedLight",
                            "EssaiVariable-Slanted"));
    EXPECT_THAT(namesIn(testFont("plain.woff")), ElementsAre("EssaiPlain-Regular"));
    EXPECT_THAT(namesIn(testFont("plain.dfont")), ElementsAre("EssaiDfont-Regular"));
    EXPECT_EQ(namesIn(systemFont("truetype/wqy/wqy-zenhei.ttc")).size(), 3U);
}

TEST(FontFile, RefusesWhatIsNoFontWithAReason)
{
    const TempFolder folder;
    mkfifo((folder / "pipe.ttf").c_str(), 0600);
    const std::pair<std::string, FontError> cases[]{
        {testFont("empty.ttf"), FontError::UnknownFormat},
        {testFont("text.ttf"), FontError::UnknownFormat},
        {testFont("truncated-directory.ttf"), FontError::Damaged},
        {testFont("broken.woff"), FontError::TooLarge},
        {testFont("nowhere.ttf"), FontError::NotFound},
        {testFont("plain.ttf") + "/below", FontError::NotFound},
        {folder.path().string(), FontError::NotAFile},
        {folder / "pipe.ttf", FontError::NotAFile}, // and does not wait for a writer
        {"/tmp/\xE9.ttf", FontError::NotUtf8Path},
        {testFont("names-no-postscript.ttf"), FontError::NoPostScriptName},
        {testFont("names-hidden.ttf"), FontError::HiddenName},
        {testFont("upem-0.ttf"), FontError::NoUnitsPerEm},
        {testFont("huge-offsets.ttf"), FontError::NoPostScriptName}};
    for (const auto &[path, reason] : cases) {
        const auto listing = fontsOfFile(path);
        EXPECT_THAT(listing.fonts, IsEmpty()) << path;
        EXPECT_THAT(listing.skipped, ElementsAre(SkippedFont{path, reason})) << path;
        EXPECT_FALSE(describe(reason).empty());
    }
}

TEST(FontFile, SurvivesACutAtAnyByte)
{
    const TempFolder folder;
    for (const char *name : {"plain.ttf", "variable.ttf", "collection.ttc", "plain.woff", "plain.dfont"}) {
        const std::string whole = readFile(testFont(name));
        for (std::size_t size = 0; size < whole.size(); size += 1 + size / 16) {
            writeFile(folder / "cut", whole.substr(0, size));
            const auto listing = fontsOfFile(folder / "cut");
            EXPECT_FALSE(listing.fonts.empty() && listing.skipped.empty()) << name << " " << size;
            for (const FontDescriptor &font : listing.fonts) {
                if (const auto face = FontFace::open(font))
                    readMetrics(*face);
            }
        }
    }
}

// FreeType's decompressors forget memory on some of these; a leak shows under the address sanitizer.
TEST(FontFile, SurvivesDamageInCompressedFonts)
{
    const TempFolder folder;
    const std::string sound = readFile(testFont("plain.woff"));
    int readable = 0;
    for (std::size_t at = 4; at < sound.size(); at += 3) {
        std::string damaged = sound;
        damaged[at] = static_cast<char>(damaged[at] ^ 0x5A);
        writeFile(folder / "damaged.woff", damaged);
        readable += fontsOfFile(folder / "damaged.woff").fonts.empty() ? 0 : 1;
    }
    EXPECT_GT(readable, 0); // a byte of an outline does not cost the font its name
}

// A file that shrinks while it is open makes reads fail, and nothing worse.
TEST(FontFile, SurvivesTruncationWhileItIsOpen)
{
    const TempFolder folder;
    writeFile(folder / "font.ttf", readFile(systemFont("truetype/dejavu/DejaVuSans.ttf")));
    const auto face = openFace(folder / "font.ttf");
    EXPECT_TRUE(face->characterMap().contains(U'A'));
    fs::resize_file(folder / "font.ttf", 2000);
    EXPECT_FALSE(face->characterMap().contains(U'A'));
    EXPECT_EQ(readMetrics(face).xHeight, 0);
}

TEST(FontFace, SurvivesHostileTables)
{
    for (const char *name : {"fvar-hostile.ttf", "many-names.ttf", "truncated-tables.ttf", "name-out-of-range.ttf"}) {
        const auto file = FontFile::open(testFont(name));
        ASSERT_TRUE(file) << name;
        if (const auto face = FontFace::open(*file, 0)) {
            (*face)->otherInstances();
            readMetrics(*face);
        }
        EXPECT_FALSE(FontFace::open(*file, 0, 70000)) << name;
        EXPECT_FALSE(FontFace::open(*file, 9)) << name;
    }
}

// A small file may name the same long string many thousand times.
TEST(FontFace, BoundsWhatNamesCost)
{
    const auto instances = openFace(testFont("long-instance-names.ttf"))->otherInstances();
    EXPECT_GT(instances.size(), 90U); // 4 MiB of them
    EXPECT_LT(instances.size(), 120U);
    EXPECT_TRUE(openFace(testFont("variable.ttf"))->otherInstances(std::chrono::nanoseconds(0)).empty());

    const auto face = openFace(testFont("names-in-vain.ttf"));
    EXPECT_EQ(face->name(NameId::Designer), std::nullopt);
    EXPECT_EQ(face->postScriptName(), "EssaiVain-Regular");
}

TEST(FontFace, SharesItsFileAndNamesWithItsInstances)
{
    const auto regular = openFace(testFont("variable.ttf"));
    const auto bold = regular->instance(regular->otherInstances().at(0).index);
    ASSERT_TRUE(bold);
    EXPECT_EQ((*bold)->postScriptName(), "EssaiVariable-Gras");
    EXPECT_EQ((*bold)->file(), regular->file());
    EXPECT_FALSE(regular->instance(5));
    EXPECT_FALSE(openFace(testFont("plain.ttf"))->instance(1));
    EXPECT_EQ((*(*bold)->instance(0))->postScriptName(), "EssaiVariable-Regular");
}

TEST(FontFace, MeasuresAlongTheDesignSpace)
{
    const auto metrics = readMetrics(openFace(systemFont("truetype/dejavu/DejaVuSans.ttf")));
    EXPECT_NEAR(metrics.xHeight, 1120.0 / 2048, 1e-9);
    EXPECT_NEAR(metrics.capHeight, 1493.0 / 2048, 1e-9);
    EXPECT_NEAR(metrics.ascent, 1901.0 / 2048, 1e-9);
    EXPECT_NEAR(metrics.descent, 483.0 / 2048, 1e-9);

    const auto regular = openFace(testFont("variable.ttf"));
    EXPECT_TRUE(regular->isVariable());
    EXPECT_THAT(regular->coordinates(), IsEmpty());
    const auto instances = regular->otherInstances();
    ASSERT_EQ(instances.size(), 3U);
    const auto bold = openFace(testFont("variable.ttf"), 0, instances[0].index);
    EXPECT_THAT(bold->coordinates(),
                ElementsAre(AxisValue{tag("wght"), 700}, AxisValue{tag("wdth"), 100}, AxisValue{tag("slnt"), 0}));
    EXPECT_GT(readMetrics(bold).xHeight, readMetrics(regular).xHeight);
}

} // namespace
} // namespace kerlune
