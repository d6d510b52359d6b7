#include "State/Backup.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kerlune {
namespace {

using nlohmann::json;

constexpr double kDate = 1'795'267'080.123456; // 2026-11-21T13:18:00.123456Z

std::string nested(std::size_t levels)
{
    return std::string(levels, '[') + std::string(levels, ']');
}

TEST(Backup, IsOneReadableObject)
{
    const UserData data{.favorites = {{"Éclair", kDate}},
                        .collections = {{"1", "Une", kDate, 0, {"A", "B"}}},
                        .tags = {{"A", {"t", "u"}}},
                        .smartCollections = {{"s", "S", R"({"search":"é"})", kDate}},
                        .recents = {{"B", kDate}}};
    EXPECT_EQ(encodeBackup(data), json::parse(R"({
        "format": "kerlune-backup", "version": 1,
        "favorites": [{"family": "Éclair", "added": "2026-11-21T13:18:00.123456Z"}],
        "collections": [{"id": "1", "name": "Une", "created": "2026-11-21T13:18:00.123456Z", "families": ["A", "B"]}],
        "tags": {"A": ["t", "u"]},
        "smartCollections": [{"id": "s", "name": "S", "created": "2026-11-21T13:18:00.123456Z",
                              "filters": {"search": "é"}}],
        "recents": [{"family": "B", "used": "2026-11-21T13:18:00.123456Z"}]})"));
}

TEST(Backup, ComesBackAsItWas)
{
    UserData data{.favorites = {{"A", kDate}, {std::string("a\0b", 3), 0}},
                  .collections = {{"1", "", kDate, -7, {"A"}}, {"0", "Vide", kDate}},
                  .tags = {{"A", {"t"}}, {"\n", {"u"}}},
                  .recents = {{"B", kDate}}};
    for (const std::string &filters :
         {std::string(R"({"a":[1,2.5,null],"b":"é"})"), std::string("[]"), std::string("no JSON"), std::string(),
          std::string(R"("a text")"), std::string("1e999"), nested(99), nested(101), nested(1'000'000)})
        data.smartCollections.push_back({"s", "S", filters, kDate});
    const auto back = decodeBackup(encodeBackup(data));
    ASSERT_TRUE(back) << back.error();
    EXPECT_EQ(*back, data);
    EXPECT_EQ(decodeBackup(encodeBackup({})), UserData{});
}

TEST(Backup, HoldsValidTextOnly)
{
    const UserData foreign{.favorites = {{"", 1}, {"\xE9", std::nan("")}},
                           .collections = {{"", "Sans nom", 1}, {"1", "\xE9", -1, 0, {"", "\xE9", "\xEA"}}},
                           .tags = {{"", {"t"}}, {"A", {""}}, {"\xE9", {"t"}}, {"\xEA", {"u"}}},
                           .smartCollections = {{"", "Sans nom", "{}", 1}, {"s", "S", "\"\xE9\"", 1e300}},
                           .recents = {{"", 1}}};
    const auto back = decodeBackup(encodeBackup(foreign));
    ASSERT_TRUE(back) << back.error();
    EXPECT_EQ(*back, (UserData{.favorites = {{"\uFFFD", 0}},
                               .collections = {{"1", "\uFFFD", 0, 0, {"\uFFFD"}}},
                               .tags = {{"\uFFFD", {"t", "u"}}},
                               .smartCollections = {{"s", "S", "\"\uFFFD\"", 253'402'300'799.999999}}}));
}

TEST(Backup, SaysWhatIsWrongAndWhere)
{
    struct Case {
        const char *json;
        const char *error;
    };
    for (const auto &[text, error] : {
             Case{"null", "ce n’est pas une sauvegarde de Kerlune"},
             {"[]", "ce n’est pas une sauvegarde de Kerlune"},
             {R"({"version": 1})", "ce n’est pas une sauvegarde de Kerlune"},
             {R"({"format": "other", "version": 1})", "ce n’est pas une sauvegarde de Kerlune"},
             {R"({"format": "kerlune-backup"})", "« version » manque"},
             {R"({"format": "kerlune-backup", "version": 1.0})", "« version » n’est pas un nombre entier"},
             {R"({"format": "kerlune-backup", "version": 0})", "« version » n’est pas un numéro de version"},
             {R"({"format": "kerlune-backup", "version": 2, "tags": 1})",
              "cette sauvegarde vient d’une version plus récente de Kerlune"},
             {R"({"format": "kerlune-backup", "version": 18446744073709551615})",
              "cette sauvegarde vient d’une version plus récente de Kerlune"},
         }) {
        const auto decoded = decodeBackup(json::parse(text));
        ASSERT_FALSE(decoded) << text;
        EXPECT_EQ(decoded.error(), error) << text;
    }

    const std::string date = R"("2026-11-21T13:18:00Z")";
    for (const auto &[member, error] : std::vector<std::pair<std::string, std::string>>{
             {R"("favorites": null)", "« favorites » n’est pas une liste"},
             {R"("favorites": ["A"])", "« favorites[0] » n’est pas un objet"},
             {R"("favorites": [{"added": )" + date + "}]", "« favorites[0].family » manque"},
             {R"("favorites": [{"family": "", "added": )" + date + "}]", "« favorites[0].family » est vide"},
             {R"("favorites": [{"family": "A", "added": 12}])", "« favorites[0].added » n’est pas un texte"},
             {R"("recents": [{"family": "A", "used": "2026-02-30T00:00:00Z"}])",
              "« recents[0].used » n’est pas une date"},
             {R"("collections": [{"id": "1", "created": )" + date + "}]", "« collections[0].name » manque"},
             {R"("collections": [{"id": "", "name": "", "created": )" + date + "}]", "« collections[0].id » est vide"},
             {R"("collections": [{"id": "1", "name": "", "families": ["A", 1], "created": )" + date + "}]",
              "« collections[0].families[1] » n’est pas un texte"},
             {R"("collections": [{"id": "1", "name": "", "sortOrder": "1", "created": )" + date + "}]",
              "« collections[0].sortOrder » n’est pas un nombre entier"},
             {R"("tags": ["A"])", "« tags » n’est pas un objet"},
             {R"("tags": {"A": "t"})", "« tags[A] » n’est pas une liste"},
             {R"("tags": {"A": ["t", ""]})", "« tags[A][1] » est vide"},
             {R"("tags": {"": ["t"]})", "« tags[] » est vide"},
             {R"("smartCollections": [{"id": "1", "name": "", "created": )" + date + "}]",
              "« smartCollections[0].filters » manque"},
             {R"("smartCollections": [{"id": "1", "name": "", "created": )" + date + R"(, "filters": )" +
                  nested(100'000) + "}]",
              "« smartCollections[0].filters » a trop de niveaux"},
         }) {
        const auto decoded = decodeBackup(json::parse(R"({"format": "kerlune-backup", "version": 1, )" + member + "}"));
        ASSERT_FALSE(decoded) << member;
        EXPECT_EQ(decoded.error(), error);
    }

    // What no file can hold, but a value can.
    json backup = encodeBackup({.collections = {{"1", "Une"}}, .smartCollections = {{"s", "S", "{}"}}});
    backup["smartCollections"][0]["filters"]["search"] = "\xE9";
    EXPECT_EQ(decodeBackup(backup).error(), "« smartCollections[0].filters » n’est pas de l’UTF-8 valide");
    backup["collections"][0]["name"] = "\xE9";
    EXPECT_EQ(decodeBackup(backup).error(), "« collections[0].name » n’est pas de l’UTF-8 valide");
}

TEST(Backup, PassesOverWhatItDoesNotKnow)
{
    const auto decoded = decodeBackup(json::parse(R"({"format": "kerlune-backup", "version": 1, "more": )" +
                                                  nested(100'000) + R"(, "tags": {"A": [], "B": ["t"]}, "recents": [
        {"family": "A", "used": "2026-11-21T13:18:00Z", "more": 1},
        {"family": "A", "used": "2026-11-21T13:19:00Z"}]})"));
    ASSERT_TRUE(decoded) << decoded.error();
    EXPECT_EQ(*decoded, (UserData{.tags = {{"B", {"t"}}}, .recents = {{"A", 1'795'267'080}}}));
}

} // namespace
} // namespace kerlune
