#include "CommandLineFixture.h"

namespace kerlune {
namespace {

using DuplicatesCommandTest = CommandLineTest;

TEST_F(DuplicatesCommandTest, WritesTheGroupsAsJson)
{
    const std::string old = put("data/fonts/old.ttf", "two-a.ttf");
    const std::string copy = put("data/Kerlune/Library/copy.ttf", "two-a.ttf");
    const std::string recent = put("data/Kerlune/Google Fonts/recent.ttf", "two-b.ttf");
    put("other/a.ttf", "names-no-family.ttf");
    fs::copy_file(m_home / "other/a.ttf", m_home / "other/b.ttf");

    const json report = json::parse(run("duplicates --json").output);
    EXPECT_GE(report.at("scannedFiles"), 3); // the machine's own shared fonts are looked at too
    const auto size = fs::file_size(old);
    const auto entry = [&](const std::string &path, const char *version) {
        return json{{"path", path},
                    {"size", size},
                    {"postScriptNames", {"EssaiDouble-Regular"}},
                    {"family", "Essai Double"},
                    {"style", "Regular"},
                    {"version", version}};
    };
    const json &groups = report.at("groups");
    EXPECT_THAT(groups, Contains(json{{"kind", "psNameConflict"},
                                      {"key", "EssaiDouble-Regular"},
                                      {"reclaimable", size},
                                      {"entries", {entry(old, "Version 1.000"), entry(recent, "Version 2.000")}}}));
    EXPECT_THAT(
        groups,
        Contains(json{
            {"kind", "versionDrift"},
            {"key", "Essai Double Regular"},
            {"reclaimable", 2 * size},
            {"entries", {entry(recent, "Version 2.000"), entry(copy, "Version 1.000"), entry(old, "Version 1.000")}}}));

    const json other = json::parse(run("duplicates --json " + (m_home / "other").string()).output);
    EXPECT_EQ(other.at("scannedFiles"), 2);
    EXPECT_EQ(other.at("groups").size(), 1U);
    EXPECT_EQ(other.at("groups").at(0).at("kind"), "identical");
    EXPECT_EQ(other.at("groups").at(0).at("entries").at(0).at("version"), nullptr);
    EXPECT_FALSE(fs::exists(database())); // no index is needed
}

TEST_F(DuplicatesCommandTest, SaysInFrenchWhatItFound)
{
    put("a.ttf", "two-a.ttf");
    put("b.ttf", "two-b.ttf");
    put("broken.ttf", "empty.ttf");
    put("control-\x1b[2J.ttf", "names-control.ttf");
    put("control-2.ttf", "names-control.ttf");
    const Result found = run("duplicates " + m_home.path().string());
    EXPECT_EQ(found.status, 0);
    EXPECT_EQ(found.messages, "");
    EXPECT_THAT(found.output, HasSubstr("Conflits de nom PostScript : 1\nDeux fichiers différents portent"));
    EXPECT_THAT(found.output, HasSubstr("Versions différentes : 1\n"));
    EXPECT_THAT(found.output, HasSubstr("b.ttf  [Version 2.000]\n"));
    EXPECT_THAT(found.output, HasSubstr("Fichiers identiques : 1\n"));
    EXPECT_THAT(found.output, HasSubstr("Fichiers illisibles : 1\n"));
    EXPECT_THAT(found.output, HasSubstr("5 fichiers de polices examinés : 3 groupes, "));
    EXPECT_THAT(found.output, Not(HasSubstr("\x1b")));

    EXPECT_EQ(run("duplicates " + (m_home / "a.ttf").string()).output,
              "Aucun doublon : 1 fichier de polices examiné.\n");
}

TEST_F(DuplicatesCommandTest, TakesPathsAsTheyAreTyped)
{
    put("[a,b]/plain.ttf");
    put("faces/plain.ttf");
    put("-x/plain.ttf");
    put("raw-\xFF/plain.ttf");
    fs::current_path(m_home.path());
    const json report = json::parse(run("duplicates '[a,b]' --json faces raw-* -- -x").output);
    EXPECT_EQ(report.at("scannedFiles"), 4);
    EXPECT_EQ(report.at("groups").at(0).at("entries").at(0).at("path"), (m_home / "[a,b]/plain.ttf").string());
    EXPECT_THAT(report.at("broken").at(0), HasSubstr("raw-\uFFFD/plain.ttf"));

    expect({{"duplicates faces missing", 1, "Fichier ou dossier introuvable : missing"},
            {"duplicates --jsn faces", 2, "--jsn"}});
    fs::current_path("/");
}

} // namespace
} // namespace kerlune
