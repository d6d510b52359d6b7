#include "Model/SFNTReader.h"

#include "TestFonts.h"

#include <gmock/gmock.h>

#include <vector>

namespace kerlune {
namespace {

struct Case {
    const char *font;
    std::uint16_t fsType;
    std::uint16_t weightClass;
    std::uint16_t widthClass;
    bool panoseMonospaced;
};

TEST(SFNTReader, ReadsWhatIsThereAndDefaultsTheRest)
{
    const Case cases[]{{"plain.ttf", 0x0008, 400, 5, false},
                       {"no-os2.ttf", 0, 400, 5, false},
                       {"os2-10.ttf", 0x0004, 700, 3, false},
                       {"weight-1001.ttf", 0x0008, 400, 5, false},
                       {"mono-panose.ttf", 0x0008, 400, 5, true}};
    for (const Case &expected : cases) {
        const auto info = SFNTReader::readOS2(*openFace(testFont(expected.font)));
        EXPECT_EQ(info.fsType, expected.fsType) << expected.font;
        EXPECT_EQ(info.weightClass, expected.weightClass) << expected.font;
        EXPECT_EQ(info.widthClass, expected.widthClass) << expected.font;
        EXPECT_EQ(info.panoseMonospaced, expected.panoseMonospaced) << expected.font;
    }
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

} // namespace
} // namespace kerlune
