#include "Model/FontIndexer.h"

#include "FixedCatalog.h"
#include "Model/FontTraits.h"
#include "Model/SFNTReader.h"
#include "TestFonts.h"
#include "Testing.h"

#include <algorithm>
#include <mutex>

namespace kerlune {
namespace {

FontRecord extract(const std::string &name, std::uint32_t faceIndex = 0, std::uint32_t instanceIndex = 0)
{
    const auto record = FontIndexer::extract({testFont(name), faceIndex, instanceIndex, {}});
    EXPECT_TRUE(record) << name << ": " << describe(record.error());
    return record.value_or(FontRecord{});
}

TEST(FontIndexer, ReadsEveryFieldOfAFace)
{
    const FontRecord record = extract("plain.ttf");
    EXPECT_EQ(record.postScriptName, "EssaiPlain-Regular");
    EXPECT_EQ(record.family, "Essai Plain");
    EXPECT_EQ(record.style, "Regular");
    EXPECT_EQ(record.filePath, testFont("plain.ttf"));
    EXPECT_GT(record.mtime, 1.6e9);
    EXPECT_EQ(record.fileSize, fs::file_size(testFont("plain.ttf")));
    EXPECT_EQ(record.weight, 0);
    EXPECT_EQ(record.width, 0);
    EXPECT_EQ(record.slant, 0);
    EXPECT_EQ(record.symbolicTraits, 0U);
    EXPECT_FALSE(record.isVariable || record.isMonospace || record.isColor || record.isItalic);
    EXPECT_DOUBLE_EQ(record.xHeightRatio, 0.5);
    EXPECT_DOUBLE_EQ(record.capHeightRatio, 0.7);
    EXPECT_EQ(record.scriptMask, 1U);
    EXPECT_THAT(record.version, Optional(std::string("Version 1.250")));
    EXPECT_THAT(record.foundry, Optional(std::string("Fonderie Essai")));
    EXPECT_THAT(record.designer, Optional(std::string("Élodie Martin")));
    EXPECT_THAT(record.licenseURL, Optional(std::string("https://example.org/licence")));
    EXPECT_THAT(record.copyrightNotice, Optional(std::string("© 2024 Essai")));
    EXPECT_EQ(record.fsType, 8);
    EXPECT_EQ(record.classification, FontClass::display); // few glyphs, basic Latin
}

TEST(FontIndexer, ReadsStyleFromTheTablesThatAreThere)
{
    const FontRecord bare = extract("no-os2.ttf"); // head.macStyle and the drawn x and H speak
    EXPECT_EQ(bare.symbolicTraits & 3, FontTraits::kItalic | FontTraits::kBold);
    EXPECT_TRUE(bare.isItalic);
    EXPECT_EQ(bare.weight, 0);
    EXPECT_EQ(bare.fsType, 0);
    EXPECT_DOUBLE_EQ(bare.xHeightRatio, 0.48);
    EXPECT_DOUBLE_EQ(bare.capHeightRatio, 0.72);

    const FontRecord narrow = extract("os2-10.ttf");
    EXPECT_DOUBLE_EQ(narrow.weight, 0.6);
    EXPECT_EQ(narrow.cssWeight(), 700);
    EXPECT_DOUBLE_EQ(narrow.width, -0.5);
    EXPECT_NE(narrow.symbolicTraits & FontTraits::kCondensed, 0U);

    EXPECT_TRUE(extract("italic.ttf").isItalic);
    EXPECT_DOUBLE_EQ(extract("italic.ttf").slant, 0.4);
    EXPECT_TRUE(extract("slanted.ttf").isItalic); // leans right without saying so
    EXPECT_FALSE(extract("backslanted.ttf").isItalic);
    EXPECT_DOUBLE_EQ(extract("backslanted.ttf").slant, -0.3);
    EXPECT_EQ(extract("family-class-08.ttf").symbolicTraits >> 28, 8U);
}

TEST(SFNTReader, KeepsToTheBounds)
{
    std::vector<std::uint8_t> table(36);
    table[4] = 0x03; // weight class 1000
    table[5] = 0xE8;
    table[7] = 9; // width class 9
    table[9] = 2; // fsType
    table[35] = 9;
    auto info = SFNTReader::readOS2(table);
    EXPECT_EQ(info.weightClass, 1000);
    EXPECT_EQ(info.widthClass, 9);
    EXPECT_TRUE(info.panoseMonospaced);

    table[5] = 0xE9;
    table[7] = 0;
    info = SFNTReader::readOS2(table);
    EXPECT_EQ(info.weightClass, 400);
    EXPECT_EQ(info.widthClass, 5);

    EXPECT_FALSE(SFNTReader::readOS2(ByteView(table).first(35)).panoseMonospaced);
    EXPECT_EQ(SFNTReader::readOS2(ByteView(table).first(10)).fsType, 2);
    EXPECT_EQ(SFNTReader::readOS2(ByteView(table).first(9)).fsType, 0);
}

TEST(FontIndexer, SeesPitchAndColour)
{
    for (const char *name : {"mono-post.ttf", "mono-panose.ttf"}) {
        EXPECT_TRUE(extract(name).isMonospace) << name;
        EXPECT_EQ(extract(name).classification, FontClass::mono) << name;
    }
    EXPECT_EQ(extract("mono-panose.ttf").symbolicTraits & FontTraits::kMonospace, 0U);
    for (const char *name : {"color-colr.ttf", "color-svg.ttf", "color-cbdt.ttf", "color-sbix.ttf"})
        EXPECT_TRUE(extract(name).isColor) << name;
    EXPECT_EQ(extract("pictograms.ttf").classification, FontClass::decorative);
}

TEST(FontIndexer, NamesAFaceWithoutFamilyByItsPostScriptName)
{
    const FontRecord record = extract("names-no-family.ttf");
    EXPECT_EQ(record.family, "EssaiNoFamily-Regular");
    EXPECT_EQ(record.style, "");
}

TEST(FontIndexer, PlacesInstancesInTheDesignSpace)
{
    const auto fonts = fontsOfFile(testFont("variable.ttf")).fonts;
    ASSERT_EQ(fonts.size(), 4U); // the default instance is not offered twice
    const auto record = [&](std::size_t i) { return *FontIndexer::extract(fonts[i]); };
    EXPECT_EQ(record(0).postScriptName, "EssaiVariable-Regular");
    EXPECT_DOUBLE_EQ(record(0).xHeightRatio, 0.5);
    EXPECT_EQ(record(1).postScriptName, "EssaiVariable-Gras"); // the instance's own name
    EXPECT_EQ(record(1).style, "Bold");
    EXPECT_EQ(record(1).cssWeight(), 700);
    EXPECT_GT(record(1).xHeightRatio, 0.53);
    EXPECT_EQ(record(2).postScriptName, "EssaiVariable-CondensedLight");
    EXPECT_EQ(record(2).cssWeight(), 300);
    EXPECT_DOUBLE_EQ(record(2).width, -0.5);
    EXPECT_EQ(record(3).postScriptName, "EssaiVariable-Slanted");
    EXPECT_DOUBLE_EQ(record(3).slant, 0.4);
    EXPECT_TRUE(record(3).isItalic);
    for (std::size_t i = 0; i < fonts.size(); ++i) {
        EXPECT_TRUE(record(i).isVariable);
        EXPECT_EQ(record(i).family, "Essai Variable");
    }
}

TEST(FontIndexer, SaysWhyAFaceHasNoRecord)
{
    const std::pair<const char *, FontError> cases[]{{"names-no-postscript.ttf", FontError::NoPostScriptName},
                                                     {"names-hidden.ttf", FontError::HiddenName},
                                                     {"upem-0.ttf", FontError::NoUnitsPerEm},
                                                     {"empty.ttf", FontError::UnknownFormat},
                                                     {"missing.ttf", FontError::NotFound}};
    for (const auto &[name, reason] : cases) {
        const auto record = FontIndexer::extract({testFont(name), 0, 0, {}});
        ASSERT_FALSE(record) << name;
        EXPECT_EQ(record.error(), reason) << name;
    }
}

TEST(FontIndexer, ReportsEvery128FacesAndTheLast)
{
    const FixedCatalog catalog(std::vector<std::string>(300, testFont("plain.ttf")));
    std::vector<std::int64_t> reports;
    std::mutex mutex;
    const auto index = FontIndexer(catalog).buildIndex([&](const FontIndexer::Progress &progress) {
        const std::lock_guard lock(mutex);
        EXPECT_EQ(progress.total, 300);
        reports.push_back(progress.done);
    });
    EXPECT_EQ(index.records.size(), 300U);
    std::sort(reports.begin(), reports.end());
    EXPECT_THAT(reports, ElementsAre(128, 256, 300));
}

TEST(FontIndexer, KeepsTheCataloguesOrderAndNamesWhatItSkips)
{
    const FixedCatalog catalog({testFont("two-b.ttf"), testFont("text.ttf"), testFont("collection.ttc"),
                                testFont("names-hidden.ttf"), testFont("plain.ttf")});
    const auto index = FontIndexer(catalog).buildIndex();
    std::vector<std::string> names;
    for (const auto &record : index.records)
        names.push_back(record->postScriptName);
    EXPECT_THAT(names, ElementsAre("EssaiDouble-Regular", "EssaiCollection-Regular", "EssaiCollection-Bold",
                                   "EssaiPlain-Regular"));
    EXPECT_THAT(index.skipped, ElementsAre(SkippedFont{testFont("text.ttf"), FontError::UnknownFormat},
                                           SkippedFont{testFont("names-hidden.ttf"), FontError::HiddenName}));
}

TEST(FontIndexer, GroupsFacesByExactFamilyName)
{
    std::vector<FontRecordPointer> records;
    const std::pair<const char *, const char *> faces[]{
        {"Essai 10", "a"}, {"Essai 9", "b"}, {"essai 9", "c"}, {"Essai 10", "d"}, {"Arial", "e"}};
    for (const auto &[family, name] : faces) {
        FontRecord record;
        record.family = family;
        record.postScriptName = name;
        records.push_back(std::make_shared<const FontRecord>(record));
    }
    const auto families = FontIndexer::groupIntoFamilies(records);
    ASSERT_EQ(families.size(), 4U);
    EXPECT_EQ(families[0].name, "Arial");
    EXPECT_EQ(families[1].name, "Essai 9"); // before its twin in lower case: it came first
    EXPECT_EQ(families[2].name, "essai 9");
    EXPECT_EQ(families[3].name, "Essai 10");
    EXPECT_THAT(families[3].faces, ElementsAre(records[0], records[3]));
}

} // namespace
} // namespace kerlune
