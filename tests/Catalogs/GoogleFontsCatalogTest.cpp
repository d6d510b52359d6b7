#include "Catalogs/GoogleFontsCatalog.h"

#include "TempFolder.h"
#include "Testing.h"

#include <nlohmann/json.hpp>

#include <limits>

namespace kerlune {
namespace {

using namespace GoogleFontsCatalog;

constexpr std::int64_t kLastRank = std::numeric_limits<std::int64_t>::max();

std::string catalogOf(const std::string &elements)
{
    return R"({"familyMetadataList": [)" + elements + "]}";
}

GoogleFontFamily only(const std::string &element)
{
    const auto families = parseCatalog(catalogOf(element));
    if (!families || families->size() != 1)
        throw std::runtime_error(element);
    return families->front();
}

TEST(GoogleFontsCatalog, TakesEveryFieldAndWhatIsMissingFromTheList)
{
    const std::string full = R"({"family": "Lora", "displayName": "Lora!", "category": "Serif", "popularity": 12,
        "trending": 34.0, "dateAdded": "2011-07-06", "designers": ["Cyreal", "X"], "isNoto": true,
        "fonts": {"700": {}, "400i": {}, "400": {}}, "axes": [{"tag": "wght"}]})";
    const GoogleFontFamily expected{.family = "Lora",
                                    .displayName = "Lora!",
                                    .category = "Serif",
                                    .popularity = 12,
                                    .trending = 34,
                                    .dateAdded = "2011-07-06",
                                    .designers = {"Cyreal", "X"},
                                    .variants = {"400", "400i", "700"},
                                    .isVariable = true,
                                    .isNoto = true};
    EXPECT_EQ(only(full), expected);
    const GoogleFontFamily bare{.family = "Bare", .popularity = kLastRank, .trending = kLastRank};
    EXPECT_EQ(only(R"({"family": "Bare"})"), bare);
    // What has another type counts as missing.
    EXPECT_EQ(only(R"({"family": "Bare", "displayName": 1, "category": [], "popularity": "3", "trending": 1.5,
                       "dateAdded": 2011, "designers": ["a", 1], "isNoto": 1, "fonts": ["400"], "axes": []})"),
              bare);
    EXPECT_EQ(only(R"({"family": "Bare", "popularity": true, "trending": 99999999999999999999})"), bare);

    // The guard that keeps browsers from running the answer.
    EXPECT_EQ(*parseCatalog(")]}'\n" + catalogOf(full)), *parseCatalog(catalogOf(full)));
}

TEST(GoogleFontsCatalog, SortsVariantsByWeightUprightFirst)
{
    const auto variants = [](const std::string &fonts) {
        return only(R"({"family": "A", "fonts": )" + fonts + "}").variants;
    };
    EXPECT_THAT(variants(R"({"700": 1, "400i": 1, "400": 1})"), ElementsAre("400", "400i", "700"));
    EXPECT_THAT(variants(R"({"italic": 1, "400": 1, "regular": 1, "300": 1})"),
                ElementsAre("300", "italic", "400", "regular")); // without digits 400, in the service's order
    EXPECT_THAT(variants(R"({"0400": 1, "99999999999999999999999i": 1, "0400x": 1, "i": 1})"),
                ElementsAre("0400", "0400x", "i", "99999999999999999999999i"));
}

TEST(GoogleFontsCatalog, PassesOverNamelessFamiliesAndRefusesOtherForms)
{
    const auto families =
        parseCatalog(catalogOf(R"({"family": ""}, {"category": "x"}, {"family": 3}, {"family": "B"})"));
    ASSERT_TRUE(families);
    EXPECT_EQ(families->size(), 1U);
    for (const std::string &body :
         {std::string("[]"), std::string("{}"), std::string("null"), std::string(R"({"familyMetadataList": {}})"),
          catalogOf(""), catalogOf(R"({"family": ""})"), catalogOf(R"({"family": "A"}, "B")")}) {
        const auto parsed = parseCatalog(body);
        ASSERT_FALSE(parsed) << body;
        EXPECT_EQ(parsed.error().kind, CatalogError::Case::unreadable) << body;
    }
    for (const std::string &body : {std::string(), std::string(")]}'"), std::string("<html>"), catalogOf("\"\xff\""),
                                    std::string(100'000, '['), catalogOf(R"({"family": "A")")}) {
        const auto parsed = parseCatalog(body);
        ASSERT_FALSE(parsed) << body.substr(0, 40);
        EXPECT_EQ(parsed.error().kind, CatalogError::Case::other) << body.substr(0, 40);
    }
}

TEST(GoogleFontsCatalog, KeepsTheCacheForSevenDaysAndAllOfItOrNothing)
{
    const TempFolder home;
    const auto file = home / "google-fonts-catalog.json";
    EXPECT_FALSE(cachedCatalogAge(file));
    EXPECT_FALSE(isFresh(file));
    EXPECT_THAT(readCachedCatalog(file), IsEmpty());

    const GoogleFontFamily family{.family = "A", .popularity = kLastRank, .designers = {"é"}, .variants = {"400"}};
    auto list = nlohmann::json::array({encodeGoogleFamily(family)});
    writeFile(file, list.dump());
    EXPECT_THAT(readCachedCatalog(file), ElementsAre(family));
    const auto aged = [&](std::int64_t seconds) {
        fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::seconds(seconds));
        return isFresh(file);
    };
    EXPECT_TRUE(aged(0));
    EXPECT_TRUE(aged(604'800));
    EXPECT_FALSE(aged(604'801));

    list.push_back({{"family", "B"}});
    writeFile(file, list.dump());
    EXPECT_THAT(readCachedCatalog(file), IsEmpty());
}

TEST(GoogleFontFamily, AsksForTheStyleNearestToRegular)
{
    struct Case {
        std::vector<std::string> variants;
        std::optional<std::string> one;
        std::optional<std::string> all;
    };
    const std::vector<Case> cases{
        {{"400"}, std::nullopt, std::nullopt},
        {{"300", "400", "700i"}, std::nullopt, "ital,wght@0,300;0,400;1,700"},
        {{"300", "500", "700"}, "wght@300", "wght@300;500;700"},
        {{"700", "500", "300"}, "wght@500", "wght@300;500;700"},
        {{"300i", "700i"}, "ital,wght@1,300", "ital,wght@1,300;1,700"},
        {{"400i", "900"}, "wght@900", "ital,wght@0,900;1,400"},
        {{"regular", "i", ""}, std::nullopt, std::nullopt},
        {{"-9223372036854775808", "9223372036854775807", "x"},
         "wght@9223372036854775807",
         "wght@-9223372036854775808;9223372036854775807"},
        {{}, std::nullopt, std::nullopt},
    };
    for (const auto &[variants, one, all] : cases) {
        const GoogleFontFamily family{.family = "A", .variants = variants};
        EXPECT_EQ(family.cssStyleSpec(), one) << testing::PrintToString(variants);
        EXPECT_EQ(family.cssAllStylesSpec(), all) << testing::PrintToString(variants);
    }
}

TEST(GoogleFontFamily, IsWrittenWithItsFieldsAsKeys)
{
    const GoogleFontFamily family{.family = "A",
                                  .displayName = "B",
                                  .category = "Serif",
                                  .popularity = 1,
                                  .trending = 2,
                                  .dateAdded = "d",
                                  .designers = {"e"},
                                  .variants = {"400i"},
                                  .isVariable = true,
                                  .isNoto = true};
    EXPECT_EQ(encodeGoogleFamily(family),
              nlohmann::json::parse(R"({"family": "A", "displayName": "B", "category": "Serif",
        "popularity": 1, "trending": 2, "dateAdded": "d", "designers": ["e"], "variants": ["400i"], "isVariable": true,
        "isNoto": true})"));
    EXPECT_EQ(decodeGoogleFamily(encodeGoogleFamily(family)), family);
    const nlohmann::json object = encodeGoogleFamily(family);
    for (const auto &[key, value] : object.items()) {
        nlohmann::json without = object;
        without.erase(key);
        EXPECT_EQ(decodeGoogleFamily(without).has_value(), key == "displayName") << key;
    }
    EXPECT_THAT(encodeGoogleFamily({.family = "A"}).dump(), Not(HasSubstr("displayName")));
}

TEST(GoogleFontFamily, HasLabelsForCategories)
{
    EXPECT_EQ(categoryLabel("Sans Serif"), "Sans serif");
    EXPECT_EQ(categoryLabel("Handwriting"), "Manuscrite");
    EXPECT_EQ(categoryLabel("Monospace"), "Monospace");
    EXPECT_EQ(categoryLabel("Nouvelle"), "Nouvelle");
}

} // namespace
} // namespace kerlune
