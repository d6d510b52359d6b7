// The script for DaVinci Resolve, run by a real Python against a model of Resolve's scripting module.

#include "Bridge/HostBridge.h"
#include "Platform/Linux/NoScriptEngine.h"
#include "TempFolder.h"
#include "Testing.h"

#include <QCoroTask>
#include <nlohmann/json.hpp>

#include <cstdlib>

namespace kerlune {
namespace {

using namespace ApplyOutcome;
using nlohmann::json;

class ResolveScript : public testing::Test {
protected:
    ResolveScript()
    {
        setenv("KERLUNE_RESOLVE_MODEL", m_model.c_str(), 1);
        setenv("PYTHONDONTWRITEBYTECODE", "1", 1);
        writeFile(m_python, "#!/bin/sh\nexec " KERLUNE_PYTHON " \"$@\"\n");
        fs::permissions(m_python, fs::perms::owner_all);
        fs::create_directories(m_modules.parent_path());
        fs::create_directory_symlink(KERLUNE_RESOLVE_MODULE, m_modules);
    }
    ~ResolveScript() override { unsetenv("KERLUNE_RESOLVE_MODEL"); }

    ApplyResult apply(const json &state, const std::string &family = "Inter", const std::string &style = "Bold")
    {
        writeFile(m_model, state.dump());
        HostBridge bridge(m_engine, {.scripts = m_scripts, .resolve = [this] { return m_home.path(); }}, {});
        FontRecord record;
        record.postScriptName = "Inter-Bold";
        record.family = family;
        record.style = style;
        return QCoro::waitFor(bridge.apply(std::make_shared<const FontRecord>(record), HostApp::davinciResolve));
    }
    std::string failure(const json &state, const std::string &family = "Inter", const std::string &style = "Bold")
    {
        return failureMessage(apply(state, family, style));
    }
    json after() const { return json::parse(readFile(m_model)); }

    static json title(bool isSelected = true)
    {
        return {{"kind", "TextPlus"}, {"selected", isSelected}, {"Font", "Old"}, {"Style", "Regular"}};
    }
    static json composition(const std::vector<json> &tools) { return {{"tools", tools}}; }
    static json item(const std::vector<json> &compositions) { return {{"compositions", compositions}}; }
    static json fonts() { return {{"Inter", {{"Regular", "a"}, {"Italic", "b"}, {"Bold", "c"}, {"SemiBold", "d"}}}}; }
    static json onEditPage(const json &timeline)
    {
        return {{"page", "edit"}, {"fonts", fonts()}, {"timeline", timeline}};
    }
    static json onFusionPage(const std::vector<json> &tools)
    {
        return {{"page", "fusion"}, {"fonts", fonts()}, {"composition", composition(tools)}};
    }

    TempFolder m_home;
    fs::path m_model = m_home / "model.json";
    fs::path m_python = m_home / "Contents/Applications/ResolvePython";
    fs::path m_modules = m_home / "Developer/Scripting/Modules";
    fs::path m_scripts = fs::path(KERLUNE_RESOURCES) / "Bridge";
    NoScriptEngine m_engine;
};

TEST_F(ResolveScript, ChangesTheSelectedTitlesOfTheFusionPageInOneStep)
{
    const json merge{{"kind", "Merge"}, {"selected", true}};
    EXPECT_EQ(apply(onFusionPage({title(), merge, title(false), title()})),
              ApplyResult(Applied{2, HostApp::davinciResolve}));
    const json composition = after()["composition"];
    EXPECT_EQ(composition["undo"], json({"Kerlune : changer la police", true}));
    EXPECT_EQ(composition["tools"][0]["Font"], "Inter");
    EXPECT_EQ(composition["tools"][0]["Style"], "Bold");
    EXPECT_EQ(composition["tools"][1], merge);
    EXPECT_EQ(composition["tools"][2], title(false));
}

TEST_F(ResolveScript, ChangesTheTitleUnderThePlayheadOrThoseSelectedInTheTimeline)
{
    const json one = item({composition({title(false)})});
    const json two = item({composition({title(false)}), composition({title(false), title(false)})});
    EXPECT_EQ(apply(onEditPage({{"current", two}})), ApplyResult(Applied{3, HostApp::davinciResolve}));
    EXPECT_EQ(after()["timeline"]["current"]["compositions"][1]["tools"][1]["Font"], "Inter");

    EXPECT_EQ(apply(onEditPage({{"current", two}, {"selected", {one, one}}})),
              ApplyResult(Applied{2, HostApp::davinciResolve}));
    EXPECT_EQ(after()["timeline"]["current"], two);
}

TEST_F(ResolveScript, SaysWhatIsMissing)
{
    json silent = onEditPage(nullptr);
    silent["isSilent"] = true;
    json noProject = onEditPage(nullptr);
    noProject["noProject"] = true;
    json noComposition = onFusionPage({});
    noComposition["composition"] = nullptr;
    const json clip = item({});
    const json otherTitle = item({composition({json{{"kind", "Background"}}})});
    json refusing = title();
    refusing["refuses"] = true;
    json throwing = title();
    throwing["throws"] = true;
    const std::vector<std::pair<json, std::string>> cases{
        {silent, "Impossible de joindre Resolve. Vérifiez Préférences > Système > Général > Scripting externe : "
                 "Local."},
        {noProject, "Aucune timeline ouverte"},
        {onEditPage(nullptr), "Aucune timeline ouverte"},
        {onEditPage({{"current", nullptr}}), "Sélectionnez un titre Text+ dans la timeline"},
        {onEditPage({{"current", clip}}), "Sélectionnez un titre Text+ dans la timeline"},
        {onEditPage({{"current", clip}, {"selected", json::array({otherTitle})}}),
         "La sélection ne contient aucun titre Text+"},
        {noComposition, "Aucune composition Fusion ouverte"},
        {onFusionPage({title(false)}), "La sélection ne contient aucun titre Text+"},
        {onFusionPage({refusing, throwing}), "Resolve a refusé la modification"},
    };
    for (const auto &[state, message] : cases)
        EXPECT_EQ(failure(state), message) << state;
    EXPECT_EQ(failure(onFusionPage({title()}), "", "Bold"), "Arguments manquants : famille et style attendus");
    EXPECT_EQ(failure(onFusionPage({title()}), "Lost: one\n"),
              "Resolve ne connaît pas la police « Lost\u2236 one ». Si elle vient d'être activée, relancez Resolve.");
}

TEST_F(ResolveScript, TakesTheClosestStyleAndSaysSo)
{
    const auto note = [](const char *wanted, const char *used) {
        return std::string("style « ") + wanted + " » absent de Resolve, « " + used + " » utilisé";
    };
    struct Case {
        const char *wanted;
        const char *used;
        bool isNoted;
    };
    for (const auto &[wanted, used, isNoted] : {Case{"Bold", "Bold", false},
                                                {"Semibold", "SemiBold", false},
                                                {"Semi Bold", "SemiBold", false},
                                                {"Black", "Regular", true},
                                                {"Bold Italic", "Italic", true},
                                                {"Bold Oblique", "Italic", true},
                                                {"Condensed Bold", "Bold", true}}) {
        const ApplyResult result = apply(onFusionPage({title()}), "inter", wanted);
        const auto *applied = std::get_if<Applied>(&result);
        ASSERT_NE(applied, nullptr) << wanted << ": " << failureMessage(result);
        EXPECT_EQ(applied->note, isNoted ? std::optional(note(wanted, used)) : std::nullopt);
        EXPECT_EQ(after()["composition"]["tools"][0]["Style"], used);
        EXPECT_EQ(after()["composition"]["tools"][0]["Font"], "Inter");
    }
}

TEST_F(ResolveScript, HostileNamesArriveAsTheyAre)
{
    json state = onFusionPage({title()});
    for (const std::string name :
         {"--help", "$(touch hacked) `x` \"; import os #'", "\u2028]]>*/", "a\\nb|c", "é 日"}) {
        state["fonts"] = {{name, {{name, ""}}}};
        EXPECT_EQ(apply(state, name, name), ApplyResult(Applied{1, HostApp::davinciResolve})) << name;
        EXPECT_EQ(after()["composition"]["tools"][0]["Font"], name);
    }
    EXPECT_THAT(failure(state, std::string("a\0b", 3)), HasSubstr("« a\uFFFDb »"));
}

TEST_F(ResolveScript, TheModuleMayBeMissingOrBroken)
{
    json broken = onFusionPage({title()});
    broken["lacksLibrary"] = true;
    EXPECT_EQ(failure(broken), "Module de scripting de Resolve introuvable (1)");
    fs::remove(m_modules);
    EXPECT_EQ(failure(onFusionPage({title()})),
              "Module de scripting de Resolve introuvable (No module named 'DaVinciResolveScript')");
}

TEST_F(ResolveScript, EachPartThatIsMissingIsNamed)
{
    m_scripts = m_home / "nothing";
    EXPECT_EQ(failure({}), "Script « resolve.py » introuvable dans l'app.");
    m_scripts = fs::path(KERLUNE_RESOURCES) / "Bridge";
    fs::permissions(m_python, fs::perms::owner_read);
    EXPECT_THAT(failure({}), StartsWith("Lancement impossible : "));
    fs::remove(m_python);
    EXPECT_EQ(failure({}), "Python embarqué introuvable : DaVinci Resolve 21.1 ou plus récent est requis.");
}

} // namespace
} // namespace kerlune
