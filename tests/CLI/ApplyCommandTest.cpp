#include "CommandLineFixture.h"

#include <string>

namespace kerlune {
namespace {

// Resolve's interpreter is stood in for by a shell script that writes down what it is given.
class ApplyCommandTest : public CommandLineTest {
protected:
    ApplyCommandTest()
    {
        offerAll({"plain.ttf"});
        const json record = faces().at(0);
        m_name = record.at("postScriptName");
        m_family = record.at("family");
        m_style = record.at("style");
    }
    ~ApplyCommandTest() override { unsetenv("KERLUNE_RESOLVE_PATH"); }

    fs::path installResolve(const std::string &folder, const std::string &script) const
    {
        const fs::path python = m_home / folder / "Contents/Applications/ResolvePython";
        writeFile(python, "#!/bin/sh\nprintf '%s\\n' \"$2\" \"$3\" \"$KERLUNE_UNDO_NAME\" >" +
                              (m_home / "given").string() + "\nhead -c 3 \"$1\" >>" + (m_home / "given").string() +
                              "\n" + script + "\n");
        fs::permissions(python, fs::perms::owner_all);
        return m_home / folder;
    }
    Result apply(const std::string &options) const { return run("apply '" + m_name + "' " + options); }

    std::string m_name;
    std::string m_family;
    std::string m_style;
};

TEST_F(ApplyCommandTest, AppliesInResolveWhereItIsInstalled)
{
    setenv("KERLUNE_RESOLVE_PATH", installResolve("Resolve", "echo 'OK|2|@RESOLVE_STYLE_SUBSTITUTED:a:b'").c_str(), 1);
    const Result result = apply("--to resolve");
    EXPECT_EQ(result.status, 0) << result.messages;
    EXPECT_EQ(result.output, "DaVinci Resolve\u00A0: Police appliquée à 2 éléments.\n"
                             "style « a » absent de Resolve, « b » utilisé\n");
    EXPECT_EQ(readFile(m_home / "given"), m_family + "\n" + m_style + "\nKerlune : changer la police\n\"\"\"");
    EXPECT_EQ(runJson("recents"), json({m_family}));
    EXPECT_EQ(runJson("apply '" + m_name + "' --to davinci-resolve"),
              json({{"host", "resolve"}, {"count", 2}, {"note", "style « a » absent de Resolve, « b » utilisé"}}));

    installResolve("Resolve", "printf 'ERR|a\\033[31m'");
    const Result failed = apply("--to resolve");
    EXPECT_EQ(failed.status, 1);
    EXPECT_EQ(failed.output, "");
    EXPECT_EQ(failed.messages, "kerlune: a\uFFFD[31m\n");
}

TEST_F(ApplyCommandTest, TheEnvironmentPrecedesTheSettings)
{
    const fs::path set = installResolve("a, b", "echo 'OK|3'");
    writeFile(m_home / "config/Kerlune/settings.ini", "[General]\nresolvePath=\"" + set.string() + "\"\n");
    EXPECT_THAT(apply("--to resolve").output, HasSubstr("3 éléments"));
    setenv("KERLUNE_RESOLVE_PATH", "", 1);
    EXPECT_THAT(apply("--to resolve").output, HasSubstr("3 éléments"));
    setenv("KERLUNE_RESOLVE_PATH", (m_home / "elsewhere").c_str(), 1);
    EXPECT_THAT(apply("--to resolve").messages, HasSubstr("Python embarqué introuvable : "));
}

TEST_F(ApplyCommandTest, SaysWhyItCannot)
{
    expect({
        {"apply", 2, "kerlune: Donnez le nom PostScript d’une police"},
        {"apply a b --to resolve", 2, "Donnez le nom PostScript d’une police"},
        {"apply '" + m_name + "'", 2, "Donnez par --to le programme"},
        {"apply '" + m_name + "' --to paint", 2, "Programme inconnu : « paint »."},
        {"apply nowhere --to photoshop", 1, "Aucune police « nowhere » dans la bibliothèque."},
        {"apply '" + m_name + "' --to photoshop", 1, "Photoshop n'est pas lancé."},
        {"apply '" + m_name + "' --to 'After Effects' --json", 1, "After Effects n'est pas lancé."},
    });
    EXPECT_EQ(runJson("recents"), json::array());
}

} // namespace
} // namespace kerlune
