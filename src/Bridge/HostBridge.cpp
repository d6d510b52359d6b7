#include "Bridge/HostBridge.h"

#include "Bridge/AdobeHost.h"
#include "Bridge/ResolveHost.h"
#include "Support/Localization.h"
#include "Support/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace kerlune {

namespace {

using namespace ApplyOutcome;

// Error numbers of Apple events.
constexpr std::int64_t kNotPermitted = -1743;  // errAEEventNotPermitted
constexpr std::int64_t kNoSuchProcess = -600;  // procNotFound
constexpr std::int64_t kConnectionLost = -609; // connectionInvalid

// What the codes of the scripts mean. %1 and %2 are their arguments, %3 is the host.
struct CodeMeaning {
    std::string_view code;
    const char *message;
};
constexpr std::array kCodeMeanings{
    CodeMeaning{"NO_DOCUMENT", marked("Aucun document ouvert")},
    CodeMeaning{"UNKNOWN_FONT", marked("%3 ne connaît pas la police « %1 ». Si elle vient d'être activée, attendez "
                                       "quelques secondes.")},
    CodeMeaning{"NO_SELECTION", marked("Aucune sélection")},
    CodeMeaning{"NO_TEXT", marked("La sélection ne contient aucun texte")},
    CodeMeaning{"PS_SELECT_TEXT_LAYER", marked("Sélectionnez un calque de texte (calque actif : %1)")},
    CodeMeaning{"AE_NO_COMP", marked("Aucune composition active")},
    CodeMeaning{"AE_NO_LAYER", marked("Aucun calque sélectionné")},
    CodeMeaning{"AE_NO_TEXT_LAYER", marked("La sélection ne contient aucun calque de texte")},
    CodeMeaning{"RESOLVE_NO_MODULE", marked("Module de scripting de Resolve introuvable (%1)")},
    CodeMeaning{"RESOLVE_ARGS", marked("Arguments manquants : famille et style attendus")},
    CodeMeaning{"RESOLVE_UNREACHABLE", marked("Impossible de joindre Resolve. Vérifiez Préférences > Système > "
                                              "Général > Scripting externe : Local.")},
    CodeMeaning{"RESOLVE_UNKNOWN_FONT", marked("Resolve ne connaît pas la police « %1 ». Si elle vient d'être "
                                               "activée, relancez Resolve.")},
    CodeMeaning{"RESOLVE_NO_COMP", marked("Aucune composition Fusion ouverte")},
    CodeMeaning{"RESOLVE_NO_TIMELINE", marked("Aucune timeline ouverte")},
    CodeMeaning{"RESOLVE_SELECT_TITLE", marked("Sélectionnez un titre Text+ dans la timeline")},
    CodeMeaning{"RESOLVE_NO_TEXTPLUS", marked("La sélection ne contient aucun titre Text+")},
    CodeMeaning{"RESOLVE_REFUSED", marked("Resolve a refusé la modification")},
    CodeMeaning{"RESOLVE_STYLE_SUBSTITUTED", marked("style « %1 » absent de Resolve, « %2 » utilisé")},
};

// The text up to the mark; the rest of it stays.
std::string_view takeUpTo(std::string_view &text, char mark)
{
    const std::size_t at = text.find(mark);
    const std::string_view part = text.substr(0, at);
    text.remove_prefix(at == std::string_view::npos ? text.size() : at + 1);
    return part;
}

std::int64_t countIn(std::string_view field)
{
    std::int64_t count = 0;
    const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), count);
    return error == std::errc() && end == field.data() + field.size() ? count : 1;
}

ApplyResult failure(const ScriptFailure &failure, HostApp target)
{
    if (failure.code == kNotPermitted)
        return NotAuthorized{target};
    if (failure.code == kNoSuchProcess || failure.code == kConnectionLost)
        return NotRunning{target};
    return Failed{failure.message, target};
}

} // namespace

HostBridge::HostBridge(ScriptEngine &engine, const Places &places, RunningHosts runningHosts)
    : m_appleEvents(engine)
    , m_runningHosts(std::move(runningHosts))
{
    for (const HostApp app : {HostApp::photoshop, HostApp::illustrator, HostApp::indesign, HostApp::afterEffects})
        m_hosts.emplace(app, std::make_unique<AdobeHost>(app, m_appleEvents, places.scripts));
    m_hosts.emplace(HostApp::davinciResolve,
                    std::make_unique<ResolveHost>(m_processes, places.scripts, places.resolve));
}

QCoro::Task<ApplyResult> HostBridge::apply(FontRecordPointer record, HostApp target)
{
    co_return co_await m_hosts.at(target)->apply(std::move(record));
}

QCoro::Task<ApplyResult> HostBridge::applyToFrontmost(FontRecordPointer record)
{
    const auto target = frontmost();
    if (!target)
        co_return noHostRuns();
    co_return co_await apply(std::move(record), *target);
}

std::optional<HostApp> HostBridge::frontmost() const
{
    const std::vector<HostApp> running = m_runningHosts ? m_runningHosts() : std::vector<HostApp>();
    return running.empty() ? std::nullopt : std::optional(running.front());
}

ApplyResult HostBridge::noHostRuns()
{
    std::string names;
    for (const HostApp host : kHostApps)
        names += (names.empty() ? "" : ", ") + displayName(host);
    return Failed{localized("Aucune application compatible n'est lancée (%1).", {names})};
}

std::string HostBridge::undoName()
{
    return localized("Kerlune : changer la police");
}

ApplyResult HostBridge::interpret(const ScriptOutcome &outcome, HostApp target)
{
    if (const auto *failed = std::get_if<ScriptFailure>(&outcome))
        return failure(*failed, target);
    const std::string answer = trimmed(std::get<ScriptSuccess>(outcome).text);
    std::string_view rest = answer;
    if (rest.starts_with("OK|")) {
        takeUpTo(rest, '|');
        Applied applied{countIn(takeUpTo(rest, '|')), target};
        if (!rest.empty())
            applied.note = describe(rest, target);
        return applied;
    }
    if (rest.starts_with("ERR|")) {
        takeUpTo(rest, '|');
        return Failed{describe(rest, target), target};
    }
    return Failed{answer.empty() ? localized("Aucune réponse du script.") : answer, target};
}

std::string HostBridge::describe(std::string_view text, HostApp target)
{
    if (!text.starts_with('@'))
        return std::string(text);
    std::string_view rest = text.substr(1);
    const std::string_view code = takeUpTo(rest, ':');
    const std::string_view first = takeUpTo(rest, ':');
    const auto meaning = std::find_if(kCodeMeanings.begin(), kCodeMeanings.end(),
                                      [&](const CodeMeaning &candidate) { return candidate.code == code; });
    if (meaning == kCodeMeanings.end())
        return std::string(text);
    return localized(meaning->message, {first, rest, displayName(target)});
}

} // namespace kerlune
