// The scripts for the hosts that speak JavaScript, each run in a model of its host as the bridge sends it there.

#include "Bridge/HostBridge.h"
#include "HostModel.h"
#include "TempFolder.h"
#include "Testing.h"

#include <QCoroTask>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <utility>

namespace kerlune {
namespace {

using namespace ApplyOutcome;
using Kind = AppleScriptToken::Kind;

const std::string kUnknown = " ne connaît pas la police « ";
const std::string kWait = " ». Si elle vient d'être activée, attendez quelques secondes.";

// Names that would be code, if a script were put together carelessly.
const std::array<std::string, 10> kHostileNames{
    R"("; hacked = true; //)",
    R"(\"; hacked = true; //)",
    R"(\\"; hacked = true; //)",
    "a\nb\rc\r\nhacked = true",
    "a\u2028hacked = true;\u2029b",
    "]]></script><script>hacked = true</script>",
    "*/ hacked = true; /*",
    "\" & (do shell script \"hacked\") & \"",
    "__UNDO_NAME__ ${hacked = true} %1 \t\x01 \\u0022",
    "'; hacked = true; '",
};

TEST(HostScripts, HoldTheirPlacesOnlyAsWholeLiterals)
{
    const auto resource = [](const std::string &name) {
        return readFile(std::string(KERLUNE_RESOURCES) + "/Bridge/" + name);
    };
    const std::string shared = resource("fonts.jsxinc");
    EXPECT_THAT(shared, HasSubstr("\"__DOCUMENTS__\".split"));
    for (const std::string name : {"photoshop", "illustrator", "indesign", "afterEffects"}) {
        std::string scripts = resource(name + ".jsx");
        EXPECT_THAT(scripts, HasSubstr("\"__PSNAME__\";")) << name;
        scripts += resource(name + ".fonts.jsx");
        scripts += shared;
        for (const std::string place : {"__PSNAME__", "__UNDO_NAME__", "__DOCUMENTS__"}) {
            for (std::size_t at = 0; (at = scripts.find(place, at)) != std::string::npos; ++at)
                EXPECT_EQ(scripts.substr(at - 1, place.size() + 2), '"' + place + '"') << name;
        }
        EXPECT_TRUE(std::all_of(scripts.begin(), scripts.end(), [](char c) { return c > 0; })) << name << ": ASCII";
    }
}

// Each host knows the name that is asked for, and takes it as it is, but for its line ends.
TEST(HostScripts, NoFontNameBecomesCode)
{
    struct Case {
        HostApp app;
        const char *model;
        const char *learn; // with the name in `wanted`
        const char *font;  // that the text has afterwards
    };
    const std::array<Case, 4> cases{{
        {HostApp::photoshop, "photoshop", "app.fonts.push({postScriptName: wanted}); open([textLayer(1, 'a')], [1])",
         "app.activeDocument.layers[0].textItem.font"},
        {HostApp::illustrator, "illustrator", "app.fontNames[wanted] = true; var frame = textFrame(3); open([frame])",
         "fontOf(frame.textRange)"},
        {HostApp::indesign, "indesign",
         "app.fonts.push(font(wanted, FontStatus.INSTALLED)); var text = new Text('abc'); open([text])", "text.font"},
        {HostApp::afterEffects, "afterEffects",
         "model.known[wanted] = true; offerFonts(); var layer = textLayer(); open([layer])", "layer.text.fonts()"},
    }};
    for (const Case &host : cases) {
        for (const std::string &name : kHostileNames) {
            SCOPED_TRACE(std::string(host.model) + ": " + name);
            ModelledHost fixture(host.app, host.model);
            const nlohmann::json literal = name; // written by another hand than the bridge's
            fixture.eval("var hacked = false; var wanted = " + literal.dump(-1, ' ', true) +
                         R"(.replace(/\r\n?/g, "\n"); )" + host.learn);
            EXPECT_EQ(fixture.apply(name), ApplyResult(Applied{1, host.app}));
            EXPECT_EQ(fixture.eval(std::string(host.font) + " === wanted"), "true");
            EXPECT_EQ(fixture.eval("hacked"), "false");
            const auto strings = std::count_if(fixture.script().begin(), fixture.script().end(),
                                               [](const auto &token) { return token.kind == Kind::String; });
            EXPECT_EQ(strings, host.app == HostApp::indesign ? 3 : 2);
            EXPECT_EQ(fixture.script().back(), (AppleScriptToken{Kind::Word, "tell"}));
        }
    }
}

TEST(HostScripts, AnAnswerIsOneLineWhateverTheFontIsCalled)
{
    ModelledHost photoshop(HostApp::photoshop, "photoshop");
    photoshop.eval("open([textLayer(1, 'a')], [1])");
    EXPECT_EQ(photoshop.failure("a:b\nOK|9"), "Photoshop" + kUnknown + "a\u2236b OK|9" + kWait);
}

TEST(HostScripts, PhotoshopChangesTheSelectedTextLayersInOneStep)
{
    ModelledHost photoshop(HostApp::photoshop, "photoshop");
    EXPECT_EQ(photoshop.failure(), "Aucun document ouvert");
    photoshop.eval("open([pixelLayer(1, 'Fond : bleu'), textLayer(2, 'a'), textLayer(7, 'b'),"
                   "group(3, 'g', [textLayer(4, 'c'), group(5, 'h', [textLayer(6, 'd')])])], [])");
    EXPECT_EQ(photoshop.failure(), "Aucune sélection");
    photoshop.eval("model.selected = [1]");
    EXPECT_EQ(photoshop.failure(), "Sélectionnez un calque de texte (calque actif : Fond \u2236 bleu)");
    photoshop.eval("model.selected = [3]");
    EXPECT_EQ(photoshop.failure(), "Sélectionnez un calque de texte (calque actif : g)");
    photoshop.eval("model.selected = [1, 2, 6]");
    EXPECT_EQ(photoshop.failure("Nowhere"), "Photoshop" + kUnknown + "Nowhere" + kWait);
    EXPECT_EQ(photoshop.eval("fontsOf([2, 6])"), "Old Old");
    EXPECT_EQ(photoshop.eval("model.steps.length"), "0");

    EXPECT_EQ(photoshop.apply(), ApplyResult(Applied{2, HostApp::photoshop}));
    EXPECT_EQ(photoshop.eval("fontsOf([2, 4, 6, 7])"), "Inter-Bold Old Inter-Bold Old");
    EXPECT_EQ(photoshop.eval("model.steps"), "Kerlune : changer la police");
    EXPECT_EQ(photoshop.eval("typeof kerluneChange"), "undefined");
    EXPECT_EQ(photoshop.script().at(3).text, "com.adobe.Photoshop");
}

TEST(HostScripts, PhotoshopTakesTheActiveLayerWhereItDoesNotTellTheSelectedOnes)
{
    ModelledHost photoshop(HostApp::photoshop, "photoshop");
    photoshop.eval("open([textLayer(1, 'a'), textLayer(2, 'b')], [1, 2]); ActionReference = undefined");
    EXPECT_EQ(photoshop.apply(), ApplyResult(Applied{1, HostApp::photoshop}));
    EXPECT_EQ(photoshop.eval("fontsOf([1, 2])"), "Old Inter-Bold");
}

TEST(HostScripts, WhatAHostRefusesIsToldInItsWords)
{
    ModelledHost photoshop(HostApp::photoshop, "photoshop");
    photoshop.eval("open([lockedLayer(1, 'a'), textLayer(2, 'b')], [1])");
    EXPECT_EQ(photoshop.failure(), "The layer is locked.");
    photoshop.eval("model.selected = [1, 2]");
    EXPECT_EQ(photoshop.apply(), ApplyResult(Applied{1, HostApp::photoshop, "The layer is locked."}));

    ModelledHost illustrator(HostApp::illustrator, "illustrator");
    illustrator.eval("open([lockedFrame()])");
    EXPECT_EQ(illustrator.failure(), "Target layer cannot be modified");
    illustrator.eval("open([lockedFrame(), textFrame(2)])");
    EXPECT_EQ(illustrator.apply(), ApplyResult(Applied{1, HostApp::illustrator, "Target layer cannot be modified"}));

    ModelledHost indesign(HostApp::indesign, "indesign");
    indesign.eval("var locked = new Text('abc'); locked.isLocked = true; open([locked])");
    EXPECT_EQ(indesign.failure(), "The story is locked.");

    ModelledHost afterEffects(HostApp::afterEffects, "afterEffects");
    afterEffects.eval("open([failingLayer()])");
    EXPECT_EQ(afterEffects.failure(), "The layer is locked: |");
    EXPECT_EQ(afterEffects.eval("model.isStepOpen"), "false");

    photoshop.eval("app = undefined");
    EXPECT_THAT(photoshop.failure(), HasSubstr("undefined"));
}

TEST(HostScripts, IllustratorChangesTextObjectsAndCharacters)
{
    ModelledHost illustrator(HostApp::illustrator, "illustrator");
    EXPECT_EQ(illustrator.failure(), "Aucun document ouvert");
    for (const char *nothing : {"open(undefined)", "open([])"}) {
        illustrator.eval(nothing);
        EXPECT_EQ(illustrator.failure(), "Aucune sélection") << nothing;
    }
    for (const char *noText : {"open([path(), group([path()])])", "open(textRange(0))", "open([textFrame(0)])"}) {
        illustrator.eval(noText);
        EXPECT_EQ(illustrator.failure(), "La sélection ne contient aucun texte") << noText;
    }
    illustrator.eval("var frame = textFrame(5), inner = textFrame(1); open([path(), frame, group([group([inner])])])");
    EXPECT_EQ(illustrator.failure("Nowhere"), "Illustrator" + kUnknown + "Nowhere" + kWait);
    EXPECT_EQ(illustrator.apply(), ApplyResult(Applied{2, HostApp::illustrator}));
    EXPECT_EQ(illustrator.eval("fontOf(frame.textRange) + fontOf(inner.textRange)"), "Inter-BoldInter-Bold");

    illustrator.eval("var range = textRange(2); open(range)");
    EXPECT_EQ(illustrator.apply(), ApplyResult(Applied{1, HostApp::illustrator}));
    EXPECT_EQ(illustrator.eval("fontOf(range)"), "Inter-Bold");
    EXPECT_EQ(illustrator.script().at(3).text, "com.adobe.illustrator");
}

TEST(HostScripts, InDesignChangesFramesTablesAndText)
{
    ModelledHost indesign(HostApp::indesign, "indesign");
    EXPECT_EQ(indesign.failure(), "Aucun document ouvert");
    indesign.eval("open([])");
    EXPECT_EQ(indesign.failure(), "Aucune sélection");
    for (const char *noText : {"open([new Rectangle()])", "open([new InsertionPoint()])", "open([new TextFrame('')])",
                               "open([new Group([new Rectangle([new Rectangle()])])])"}) {
        indesign.eval(noText);
        EXPECT_EQ(indesign.failure(), "La sélection ne contient aucun texte") << noText;
    }
    indesign.eval("var frame = new TextFrame('a'), inner = new TextFrame('b'), cell = new Cell('c'), words = new "
                  "Text('d'); var ring = withTextPath(new Rectangle(), 'e');"
                  "open([frame, new Group([new Rectangle([inner])]), new Table([cell, new Cell('')]), words, ring])");
    for (const char *missing : {"Nowhere", "Lost"})
        EXPECT_THAT(indesign.failure(missing), HasSubstr(missing + kWait));
    EXPECT_EQ(indesign.apply(), ApplyResult(Applied{5, HostApp::indesign}));
    EXPECT_EQ(indesign.eval("[frame.texts[0].font, inner.texts[0].font, cell.texts[0].font, words.font, "
                            "ring.textPaths[0].texts[0].font].join()"),
              "Inter-Bold,Inter-Bold,Inter-Bold,Inter-Bold,Inter-Bold");

    std::vector<AppleScriptToken> script = indesign.script();
    script.at(6).text.clear();
    const auto word = [](const char *text) { return AppleScriptToken{Kind::Word, text}; };
    const auto string = [](const char *text) { return AppleScriptToken{Kind::String, text}; };
    EXPECT_THAT(script, ElementsAre(word("tell"), word("application"), word("id"), string("com.adobe.InDesign"),
                                    word("do"), word("script"), string(""), word("language"), word("javascript"),
                                    word("undo"), word("mode"), word("entire"), word("script"), word("undo"),
                                    word("name"), string("Kerlune : changer la police"), word("end"), word("tell")));
}

TEST(HostScripts, InDesignReadsItsFontsOneByOneWhereOneIsDamaged)
{
    ModelledHost indesign(HostApp::indesign, "indesign");
    indesign.eval("app.fonts.unshift(damagedFont()); var text = new Text('a'); open([text])");
    EXPECT_EQ(indesign.apply(), ApplyResult(Applied{1, HostApp::indesign}));
    EXPECT_EQ(indesign.eval("text.font"), "Inter-Bold");
}

TEST(HostScripts, AfterEffectsChangesTheSelectedTextLayersAtEachKeyframe)
{
    ModelledHost afterEffects(HostApp::afterEffects, "afterEffects");
    for (const char *none : {"0", "app.project.activeItem = {name: 'footage'}", "app.project = null"}) {
        afterEffects.eval(none);
        EXPECT_EQ(afterEffects.failure(), "Aucune composition active") << none;
    }
    afterEffects.eval("open([])");
    EXPECT_EQ(afterEffects.failure(), "Aucun calque sélectionné");
    afterEffects.eval("open([solidLayer()])");
    EXPECT_EQ(afterEffects.failure(), "La sélection ne contient aucun calque de texte");
    afterEffects.eval("var still = textLayer(), moving = textLayer(3); open([still, solidLayer(), moving])");
    EXPECT_EQ(afterEffects.apply(), ApplyResult(Applied{2, HostApp::afterEffects}));
    EXPECT_EQ(afterEffects.eval("still.text.fonts()"), "Inter-Bold");
    EXPECT_EQ(afterEffects.eval("moving.text.fonts()"), "Inter-Bold Inter-Bold Inter-Bold");
    EXPECT_EQ(afterEffects.eval("model.steps"), "Kerlune : changer la police");
    EXPECT_EQ(afterEffects.eval("model.isStepOpen"), "false");
    EXPECT_EQ(afterEffects.script().at(3).text, "com.adobe.AfterEffects.application");
    EXPECT_EQ(afterEffects.script().at(4).text, "DoScript");
}

TEST(HostScripts, AfterEffectsTellsAnUnknownFontInEveryVersion)
{
    const std::string message = "After Effects" + kUnknown + "Nowhere" + kWait;
    ModelledHost old(HostApp::afterEffects, "afterEffects");
    old.eval("open([textLayer()])");
    EXPECT_EQ(old.failure("Nowhere"), message);

    ModelledHost recent(HostApp::afterEffects, "afterEffects");
    recent.eval("offerFonts(); open([textLayer()])");
    EXPECT_EQ(recent.failure("Nowhere"), message);
    EXPECT_EQ(recent.eval("model.steps.length"), "0");
    EXPECT_EQ(recent.apply(), ApplyResult(Applied{1, HostApp::afterEffects}));
}

} // namespace
} // namespace kerlune
