#include "Bridge/HostBridge.h"

#include "Bridge/ScriptText.h"
#include "Platform/Linux/NoScriptEngine.h"
#include "TempFolder.h"
#include "Testing.h"

#include <QCoroTask>

namespace kerlune {
namespace {

using namespace ApplyOutcome;

const FontRecordPointer kRecord = std::make_shared<const FontRecord>();

TEST(HostBridge, InterpretsAnswersAndErrorNumbers)
{
    constexpr HostApp host = HostApp::indesign;
    const auto failed = [&](const char *message) { return ApplyResult(Failed{message, host}); };
    const std::vector<std::pair<ScriptOutcome, ApplyResult>> cases{
        {ScriptFailure{-1743, "x"}, NotAuthorized{host}},
        {ScriptFailure{-600, "x"}, NotRunning{host}},
        {ScriptFailure{-609, ""}, NotRunning{host}},
        {ScriptFailure{-1728, "Object missing"}, failed("Object missing")},
        {ScriptFailure{1, "@NO_TEXT"}, failed("@NO_TEXT")},
        {ScriptSuccess{"OK|"}, Applied{1, host}},
        {ScriptSuccess{" \r\nOK|12\n\t"}, Applied{12, host}},
        {ScriptSuccess{"OK|many"}, Applied{1, host}},
        {ScriptSuccess{"OK|3x"}, Applied{1, host}},
        {ScriptSuccess{"OK|99999999999999999999"}, Applied{1, host}},
        {ScriptSuccess{"OK|3|@RESOLVE_STYLE_SUBSTITUTED:Bold:Regular"},
         Applied{3, host, "style « Bold » absent de Resolve, « Regular » utilisé"}},
        {ScriptSuccess{"OK|0|two|three"}, Applied{0, host, "two|three"}},
        {ScriptSuccess{"OK||note"}, Applied{1, host, "note"}},
        {ScriptSuccess{"OK|2|"}, Applied{2, host}},
        {ScriptSuccess{"ERR|@UNKNOWN_FONT:Inter"},
         failed("InDesign ne connaît pas la police « Inter ». Si elle vient d'être activée, attendez quelques "
                "secondes.")},
        {ScriptSuccess{"ERR|@SOMETHING:a"}, failed("@SOMETHING:a")},
        {ScriptSuccess{"ERR|"}, failed("")},
        {ScriptSuccess{"ERR|one|two"}, failed("one|two")},
        {ScriptSuccess{"OK 3"}, failed("OK 3")},
        {ScriptSuccess{"ok|3"}, failed("ok|3")},
        {ScriptSuccess{" \n"}, failed("Aucune réponse du script.")},
    };
    for (const auto &[outcome, result] : cases)
        EXPECT_EQ(HostBridge::interpret(outcome, host), result);
}

TEST(HostBridge, DescribesCodesWithTheirArguments)
{
    const std::vector<std::pair<std::string, std::string>> cases{
        {"plain: @NO_TEXT", "plain: @NO_TEXT"},
        {"", ""},
        {"@", "@"},
        {"@no_text", "@no_text"},
        {"@NO_TEXT:unused:too", "La sélection ne contient aucun texte"},
        {"@PS_SELECT_TEXT_LAYER:Fond", "Sélectionnez un calque de texte (calque actif : Fond)"},
        {"@PS_SELECT_TEXT_LAYER", "Sélectionnez un calque de texte (calque actif : )"},
        {"@RESOLVE_STYLE_SUBSTITUTED::Regular", "style «  » absent de Resolve, « Regular » utilisé"},
        {"@RESOLVE_STYLE_SUBSTITUTED:%2:b:c", "style « %2 » absent de Resolve, « b:c » utilisé"},
        {"@UNKNOWN_FONT:%3",
         "Photoshop ne connaît pas la police « %3 ». Si elle vient d'être activée, attendez quelques secondes."},
    };
    for (const auto &[text, message] : cases)
        EXPECT_EQ(HostBridge::describe(text, HostApp::photoshop), message) << text;
}

TEST(HostBridge, MessagesNameTheHost)
{
    EXPECT_EQ(failureMessage(NotAuthorized{HostApp::photoshop}),
              "Photoshop n'a pas autorisé Kerlune. Réglages Système > Confidentialité et sécurité > Automatisation.");
    EXPECT_EQ(failureMessage(NotRunning{HostApp::afterEffects}), "After Effects n'est pas lancé.");
    EXPECT_EQ(failureMessage(Failed{"Pourquoi", HostApp::indesign}), "Pourquoi");
    EXPECT_EQ(failureMessage(Applied{1, HostApp::indesign}), "");
}

TEST(HostBridge, AppliesToTheHostThatWasInFrontLast)
{
    NoScriptEngine engine;
    const HostBridge::Places places{.scripts = std::string(KERLUNE_RESOURCES) + "/Bridge",
                                    .resolve = [] { return "/nowhere"; }};
    HostBridge none(engine, places, [] { return std::vector<HostApp>(); });
    const ApplyResult result = QCoro::waitFor(none.applyToFrontmost(kRecord));
    EXPECT_THAT(failureMessage(result), StartsWith("Aucune application compatible n'est lancée (Photoshop, "));
    EXPECT_EQ(std::get<Failed>(result).target, std::nullopt);

    HostBridge two(engine, places, [] { return std::vector{HostApp::indesign, HostApp::photoshop}; });
    EXPECT_EQ(QCoro::waitFor(two.applyToFrontmost(kRecord)), ApplyResult(NotRunning{HostApp::indesign}));
}

TEST(HostBridge, NamesAScriptThatIsMissing)
{
    NoScriptEngine engine;
    const TempFolder empty;
    HostBridge bridge(engine, {.scripts = empty.path(), .resolve = {}}, {});
    for (const HostApp host : kHostApps) {
        const std::string file = scriptName(host) + (host == HostApp::davinciResolve ? ".py" : ".jsx");
        EXPECT_EQ(QCoro::waitFor(bridge.apply(kRecord, host)),
                  ApplyResult(Failed{"Script « " + file + " » introuvable dans l'app.", host}));
    }
}

TEST(HostApp, IsFoundByAnyOfItsNames)
{
    for (const HostApp host : kHostApps) {
        EXPECT_EQ(hostNamed(commandWord(host)), host);
        EXPECT_EQ(hostNamed(displayName(host)), host);
    }
    EXPECT_EQ(hostNamed("AfterEffects"), HostApp::afterEffects);
    EXPECT_EQ(hostNamed("davinci-resolve"), HostApp::davinciResolve);
    EXPECT_EQ(hostOf({"resolve", "resolve"}), HostApp::davinciResolve);
    EXPECT_EQ(hostOf({"", "Photoshop.exe"}), HostApp::photoshop);
    EXPECT_EQ(hostOf({"", ""}), std::nullopt);
    for (const char *none : {"", "word", "photoshop2", "photo shop x"})
        EXPECT_EQ(hostNamed(none), std::nullopt) << none;
}

TEST(HostApp, CommandsCarryTheScriptAsOneString)
{
    const std::string script = "a = \"b\\n\";\r\nc();\rd();\n";
    const std::string quoted = R"("a = \"b\\n\";\nc();\nd();\n")";
    EXPECT_EQ(appleScriptCommand(HostApp::photoshop, script, "u"), "do javascript " + quoted);
    EXPECT_EQ(appleScriptCommand(HostApp::illustrator, script, "u"), "do javascript " + quoted);
    EXPECT_EQ(appleScriptCommand(HostApp::afterEffects, script, "u"), "DoScript " + quoted);
    EXPECT_EQ(appleScriptCommand(HostApp::indesign, script, "un \"nom\"\\"),
              "do script " + quoted + R"( language javascript undo mode entire script undo name "un \"nom\"\\")");
    EXPECT_EQ(appleScriptFor(HostApp::afterEffects, "DoScript \"\""),
              "tell application id \"com.adobe.AfterEffects.application\"\n    DoScript \"\"\nend tell");
}

TEST(ScriptText, FillsEachPlaceOfATemplateOnce)
{
    EXPECT_EQ(
        filledTemplate(R"(f("__PSNAME__", "__UNDO_NAME__", "__PSNAME__") _PSNAME__)",
                       {{kPostScriptNamePlace, "a\"__UNDO_NAME__"}, {kUndoNamePlace, "__PSNAME__\\\r\n\u2028\x01"}}),
        R"(f("a\"__UNDO_NAME__", "__PSNAME__\\\n\u2028\u0001", "a\"__UNDO_NAME__") _PSNAME__)");
}

} // namespace
} // namespace kerlune
