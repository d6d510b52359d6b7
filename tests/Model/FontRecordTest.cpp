#include "Model/FontRecord.h"

#include "Testing.h"

#include <nlohmann/json.hpp>

namespace kerlune {
namespace {

FontRecord sample()
{
    FontRecord record;
    record.postScriptName = "A-Bold";
    record.family = "Ä";
    record.fileSize = 0xFFFFFFFFFFFFFFFF;
    record.scriptMask = 0x8000000000000000;
    record.mtime = 1700000000.25;
    record.glyphCount = 12;
    record.classification = FontClass::slab;
    record.designer = "É";
    record.fsType = 8;
    return record;
}

TEST(FontRecord, MapsWeightsToCss)
{
    const std::pair<double, int> cases[]{{-1, 100},  {-0.5, 300}, {-0.4, 300}, {0, 400},   {0.23, 500}, {0.29, 500},
                                         {0.3, 600}, {0.6, 700},  {1, 900},    {2.0, 900}, {-3.0, 100}};
    for (const auto &[weight, css] : cases) {
        FontRecord record;
        record.weight = weight;
        EXPECT_EQ(record.cssWeight(), css) << weight;
    }
}

TEST(FontRecord, ReadsEmbeddingRightsFromTheStrictestBit)
{
    using enum EmbeddingRights;
    const std::pair<std::uint16_t, EmbeddingRights> cases[]{
        {0x0000, installable}, {0x000A, restricted}, {0x000C, previewAndPrint}, {0x0008, editable},
        {0x0009, editable},    {0x0001, unknown},    {0x0300, installable},     {0x0302, restricted}};
    for (const auto &[fsType, rights] : cases)
        EXPECT_EQ(embeddingRightsFromFsType(fsType), rights) << fsType;
    EXPECT_EQ(label(restricted), "Intégration interdite");
    EXPECT_EQ(label(previewAndPrint), "Aperçu et impression seulement");
}

TEST(FontRecord, EncodesTwentyFiveKeysAndReadsThemBack)
{
    const auto object = encodeRecord(sample());
    EXPECT_EQ(object.size(), 25U);
    EXPECT_EQ(object.at("scriptMask").dump(), "9223372036854775808");
    EXPECT_EQ(object.at("classification").dump(), "2");
    EXPECT_TRUE(object.at("version").is_null());
    const auto decoded = decodeRecord(nlohmann::json::parse(object.dump()));
    ASSERT_TRUE(decoded);
    EXPECT_EQ(*decoded, sample());
}

TEST(FontRecord, DecodesOnlyWholeRecordsOfTheRightKinds)
{
    const auto sound = encodeRecord(sample());
    for (const char *optional : {"version", "foundry", "designer", "licenseURL", "copyrightNotice"}) {
        auto object = sound;
        object.erase(optional);
        EXPECT_TRUE(decodeRecord(object)) << optional;
        object[optional] = 1;
        EXPECT_FALSE(decodeRecord(object)) << optional;
    }
    for (const char *required : {"postScriptName", "mtime", "isColor", "glyphCount", "scriptMask", "fsType"}) {
        auto object = sound;
        object.erase(required);
        EXPECT_FALSE(decodeRecord(object)) << required;
    }
    for (const auto &[key, wrong] :
         std::initializer_list<std::pair<const char *, nlohmann::json>>{{"classification", 8},
                                                                        {"classification", -1},
                                                                        {"fsType", 65536},
                                                                        {"fileSize", -1},
                                                                        {"isItalic", 1},
                                                                        {"family", nullptr},
                                                                        {"glyphCount", 0x8000000000000000U}}) {
        auto object = sound;
        object[key] = wrong;
        EXPECT_FALSE(decodeRecord(object)) << key << wrong;
    }
    EXPECT_FALSE(decodeRecord(nlohmann::json::array()));
}

TEST(FontRecord, HashesEveryFieldAndZeroesAlike)
{
    const std::hash<FontRecord> hash;
    FontRecord zero = sample();
    FontRecord negativeZero = sample();
    negativeZero.slant = -0.0;
    EXPECT_EQ(zero, negativeZero);
    EXPECT_EQ(hash(zero), hash(negativeZero));

    const auto object = encodeRecord(sample());
    for (const auto &[key, value] : object.items()) {
        auto changed = object;
        if (value.is_boolean())
            changed[key] = !value.get<bool>();
        else if (value.is_number_float())
            changed[key] = value.get<double>() + 1;
        else if (value.is_number())
            changed[key] = key == "classification" ? 3 : 1;
        else
            changed[key] = "x";
        const auto record = decodeRecord(changed);
        ASSERT_TRUE(record) << key;
        EXPECT_NE(*record, sample()) << key;
        EXPECT_NE(hash(*record), hash(sample())) << key;
    }
    FontRecord emptyVersion = sample();
    emptyVersion.version = "";
    EXPECT_NE(hash(emptyVersion), hash(sample()));
}

TEST(FontClass, HasEightCasesWithFrenchLabels)
{
    const char *labels[]{"Sans serif", "Serif", "Slab", "Monospace", "Script", "Display", "Fantaisie", "Non classée"};
    for (std::size_t i = 0; i < kAllFontClasses.size(); ++i) {
        EXPECT_EQ(fontClassFromRawValue(static_cast<long long>(i)), kAllFontClasses[i]);
        EXPECT_EQ(label(kAllFontClasses[i]), labels[i]);
    }
    EXPECT_FALSE(fontClassFromRawValue(8));
    EXPECT_FALSE(fontClassFromRawValue(-1));
}

} // namespace
} // namespace kerlune
