#include "Model/FontFamily.h"

#include "Testing.h"

namespace kerlune {
namespace {

struct FaceTraits {
    const char *name = "";
    double weight = 0;
    double width = 0;
    bool isItalic = false;
    const char *style = "";
};

FontFamily family(std::initializer_list<FaceTraits> faces)
{
    FontFamily family{"F", {}};
    for (const FaceTraits &traits : faces) {
        FontRecord record;
        record.postScriptName = traits.name;
        record.weight = traits.weight;
        record.width = traits.width;
        record.isItalic = traits.isItalic;
        record.style = traits.style;
        family.faces.push_back(std::make_shared<const FontRecord>(record));
    }
    return family;
}

std::vector<std::string> names(const std::vector<FontRecordPointer> &faces)
{
    std::vector<std::string> names;
    for (const auto &face : faces)
        names.push_back(face->postScriptName);
    return names;
}

TEST(FontFamily, SortsUprightThenWidthThenWeightThenStyle)
{
    const auto sorted = family({{"Italic", 0, 0, true},
                                {"BoldB", 0.4, 0, false, "B"},
                                {"Regular", 0, 0, false},
                                {"CondensedBlack", 1, -0.5, false},
                                {"BoldA", 0.4, 0, false, "A"},
                                {"ItalicThin", -1, 0, true},
                                {"RegularTwin", 0, 0, false}})
                            .sortedFaces();
    EXPECT_THAT(names(sorted),
                ElementsAre("CondensedBlack", "Regular", "RegularTwin", "BoldA", "BoldB", "ItalicThin", "Italic"));
}

TEST(FontFamily, IsRepresentedByTheFaceNearestToRegular)
{
    EXPECT_EQ(family({{"Light", -0.4}, {"Bold", 0.4}, {"RegularItalic", 0, 0, true}}).representative()->postScriptName,
              "RegularItalic"); // the weight outranks the posture
    EXPECT_EQ(family({{"Italic", 0, 0, true}, {"Wide", 0, 0.5}, {"Normal", 0, -0.1}}).representative()->postScriptName,
              "Normal");
    EXPECT_EQ(family({{"First", -0.2}, {"Second", 0.2}}).representative()->postScriptName, "First");
}

TEST(FontFamily, IsRiskyWhenAFaceForbidsEmbedding)
{
    const auto withFsTypes = [](std::uint16_t first, std::uint16_t second) {
        FontFamily family{"F", {}};
        for (const std::uint16_t fsType : {first, second}) {
            FontRecord record;
            record.fsType = fsType;
            family.faces.push_back(std::make_shared<const FontRecord>(record));
        }
        return family.riskyLicense();
    };
    EXPECT_FALSE(withFsTypes(0x0004, 0x0008));
    EXPECT_TRUE(withFsTypes(0x0000, 0x0302));
}

TEST(FontFamily, ComparesAndHashesItsFacesByValueInOrder)
{
    const std::hash<FontFamily> hash;
    const auto one = family({{"A"}, {"B"}});
    const auto same = family({{"A"}, {"B"}});
    const auto swapped = family({{"B"}, {"A"}});
    const auto shorter = family({{"A"}});
    EXPECT_EQ(one, same);
    EXPECT_EQ(hash(one), hash(same));
    EXPECT_NE(one, swapped);
    EXPECT_NE(hash(one), hash(swapped));
    EXPECT_NE(one, shorter);
}

} // namespace
} // namespace kerlune
