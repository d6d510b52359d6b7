#include "Platform/NameTable.h"

#include "TestFonts.h"
#include "Testing.h"

namespace kerlune {
namespace {

using testing::Eq;

struct NameRecord {
    std::uint16_t platform;
    std::uint16_t encoding;
    std::uint16_t language;
    std::uint16_t id;
    std::string bytes;
};

NameTable makeTable(const std::vector<NameRecord> &records)
{
    std::vector<std::uint8_t> table;
    const auto put = [&](std::size_t value) {
        table.push_back(static_cast<std::uint8_t>(value >> 8));
        table.push_back(static_cast<std::uint8_t>(value));
    };
    put(0);
    put(records.size());
    put(6 + 12 * records.size());
    std::string storage;
    for (const NameRecord &record : records) {
        put(record.platform);
        put(record.encoding);
        put(record.language);
        put(record.id);
        put(record.bytes.size());
        put(storage.size());
        storage += record.bytes;
    }
    table.insert(table.end(), storage.begin(), storage.end());
    return NameTable(std::move(table));
}

TEST(NameTable, DecodesByPlatformAndEncoding)
{
    using namespace std::string_literals;
    const std::tuple<NameRecord, std::optional<std::string>> cases[]{
        {{3, 1, 0x409, 1, "\0A\xD8\x3D\xDE\0"s}, "A\U0001F600"},
        {{3, 0, 0x409, 1, "\0A"s}, "A"},
        {{0, 4, 0, 1, "\0\xE9"s}, "é"},
        {{1, 0, 0, 1, "\x82lodie\xAA"s}, "Çlodie™"},
        {{1, 0, 17, 1, "\xDD"s}, "ı"}, // Mac Turkish
        {{1, 7, 0, 1, "\x80"s}, "А"},  // Mac Cyrillic
        {{3, 2, 0x411, 1, "\x83\x74\x83\x48"s}, "フォ"},
        {{3, 3, 0x804, 1, "\xD6\xD0"s}, "中"},
        {{3, 4, 0x404, 1, "\xA4\xA4"s}, "中"},
        {{3, 5, 0x412, 1, "\xB0\xA1"s}, "가"},
        {{2, 2, 0, 1, "\xE9"s}, "é"},
        {{3, 9, 0x409, 1, "plain"s}, "plain"},          // unknown encoding, but ASCII
        {{3, 9, 0x409, 1, "\xE9"s}, std::nullopt},      // unknown encoding
        {{3, 1, 0x409, 1, "\xD8\0\0A"s}, std::nullopt}, // half a surrogate pair
        {{3, 1, 0x409, 1, "\0A\xDC"s}, std::nullopt},   // half a character
        {{3, 1, 0x409, 1, "\0A\0"s}, "A"},              // a stray zero
        {{3, 2, 0x411, 1, "\x83"s}, std::nullopt},      // half a Shift-JIS character
        {{1, 0, 0, 1, "\0D\0e\0s"s}, "Des"},            // UTF-16 in a record of another encoding
        {{3, 1, 0x409, 1, ""s}, std::nullopt},
    };
    for (const auto &[record, expected] : cases) {
        EXPECT_EQ(makeTable({record}).find(NameId::Family), expected)
            << record.platform << '/' << record.encoding << " " << testing::PrintToString(record.bytes);
    }
}

TEST(NameTable, PrefersEnglishThenWhatDecodesInTheTablesOrder)
{
    using namespace std::string_literals;
    const NameRecord french{3, 1, 0x40C, 1, "\0F"s};
    const NameRecord german{3, 1, 0x407, 1, "\0G"s};
    const NameRecord english{3, 1, 0x409, 1, "\0E"s};
    const NameRecord macEnglish{1, 0, 0, 1, "M"s};
    const NameRecord brokenEnglish{3, 1, 0x409, 1, "\xD8\0"s};
    const NameRecord emptyEnglish{3, 1, 0x409, 1, ""s};
    EXPECT_THAT(makeTable({macEnglish, french, english}).find(NameId::Family), Optional(Eq("E")));
    EXPECT_THAT(makeTable({french, macEnglish}).find(NameId::Family), Optional(Eq("M")));
    EXPECT_THAT(makeTable({german, french}).find(NameId::Family), Optional(Eq("G")));
    EXPECT_THAT(makeTable({german, brokenEnglish}).find(NameId::Family), Optional(Eq("G")));
    EXPECT_THAT(makeTable({emptyEnglish, french}).find(NameId::Family), Optional(Eq("F")));
    EXPECT_EQ(makeTable({french}).find(NameId::Designer), std::nullopt);
}

TEST(NameTable, StaysInsideDamagedTables)
{
    EXPECT_EQ(NameTable(std::vector<std::uint8_t>{0, 0, 0xFF}).find(NameId::Family), std::nullopt);
    for (const char *name : {"name-out-of-range.ttf", "many-names.ttf"}) {
        const auto file = FontFile::open(testFont(name));
        ASSERT_TRUE(file) << name;
        const auto face = FontFace::open(*file, 0);
        ASSERT_TRUE(face) << name;
        EXPECT_EQ((*face)->name(NameId::Designer), std::nullopt) << name;
    }
}

TEST(NameTable, ReadsTheNamesOfWholeFonts)
{
    EXPECT_EQ(openFace(testFont("names-typographic.ttf"))->familyName(), "Essai Typo");
    EXPECT_EQ(openFace(testFont("names-typographic.ttf"))->styleName(), "Condensed Light");
    EXPECT_EQ(openFace(testFont("names-mac-roman.ttf"))->name(NameId::Designer), "Çédille™");
    EXPECT_EQ(openFace(testFont("names-shift-jis.ttf"))->familyName(), "フォント");
}

} // namespace
} // namespace kerlune
