#include "Bridge/AdobeHost.h"

#include "Bridge/HostBridge.h"
#include "Bridge/ScriptText.h"
#include "Support/Localization.h"

#include <fstream>
#include <iterator>
#include <optional>
#include <utility>

namespace kerlune {

namespace {

std::optional<std::string> textOfScript(const std::filesystem::path &file)
{
    std::ifstream stream(file, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(stream), {}};
    return stream.good() && !text.empty() ? std::optional(std::move(text)) : std::nullopt;
}

// The line of a script that lists fonts that stands for what these scripts share. A host would read the file that it
// names only for a script that is a file itself.
constexpr std::string_view kInclude = "    //@include \"fonts.jsxinc\"\n";

std::optional<std::string> textOfListScript(const std::filesystem::path &folder, const std::string &name)
{
    std::optional<std::string> script = textOfScript(folder / (name + ".fonts.jsx"));
    const std::optional<std::string> shared = textOfScript(folder / "fonts.jsxinc");
    const std::size_t place = script ? script->find(kInclude) : std::string::npos;
    if (!shared || place == std::string::npos)
        return std::nullopt;
    script->replace(place, kInclude.size(), *shared);
    return script;
}

constexpr int kNamesTimeout = 3; // seconds
constexpr int kFontsTimeout = 60;

// Gives up waiting for the host after a while.
std::string withTimeout(int seconds, const std::string &script)
{
    return "with timeout of " + std::to_string(seconds) + " seconds\n    " + script + "\nend timeout";
}

std::string joinedLines(const std::vector<std::string> &lines)
{
    std::string text;
    for (const std::string &line : lines)
        text += (text.empty() ? "" : "\n") + line;
    return text;
}

std::set<std::string> linesOf(std::string_view text)
{
    std::set<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        if (end != 0)
            lines.emplace(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return lines;
}

} // namespace

AdobeHost::AdobeHost(HostApp app, AppleEventRunner &runner, std::filesystem::path scripts)
    : m_app(app)
    , m_runner(runner)
    , m_scripts(std::move(scripts))
{}

QCoro::Task<ApplyResult> AdobeHost::apply(FontRecordPointer record)
{
    const HostApp app = m_app;
    const std::string name = scriptName(app);
    const auto script = textOfScript(m_scripts / (name + ".jsx"));
    if (!script)
        co_return ApplyOutcome::Failed{localized("Script « %1.jsx » introuvable dans l'app.", {name}), app};
    const std::string undoName = HostBridge::undoName();
    const std::string javaScript =
        filledTemplate(*script, {{kPostScriptNamePlace, record->postScriptName}, {kUndoNamePlace, undoName}});
    std::string source = appleScriptFor(app, appleScriptCommand(app, javaScript, undoName));
    const auto outcome = co_await m_runner.run(std::move(source));
    co_return HostBridge::interpret(outcome, app);
}

QCoro::Task<std::optional<std::set<std::string>>> AdobeHost::documentNames()
{
    std::string source = withTimeout(kNamesTimeout, tellTo(m_app) + " to get name of every document");
    const auto outcome = co_await m_runner.run(std::move(source), AppleEventRunner::Returns::List);
    const auto *names = std::get_if<ScriptSuccess>(&outcome);
    co_return names == nullptr ? std::nullopt : std::optional(linesOf(names->text));
}

QCoro::Task<std::optional<std::vector<UsedFont>>> AdobeHost::usedFonts(std::vector<std::string> documents)
{
    const auto script = textOfListScript(m_scripts, scriptName(m_app));
    if (!script)
        co_return std::nullopt;
    const std::string javaScript = filledTemplate(*script, {{kDocumentsPlace, joinedLines(documents)}});
    const std::string command = appleScriptCommand(m_app, javaScript, HostBridge::undoName());
    std::string source = withTimeout(kFontsTimeout, tellTo(m_app) + "\n        " + command + "\n    end tell");
    const auto outcome = co_await m_runner.run(std::move(source));
    const auto *answer = std::get_if<ScriptSuccess>(&outcome);
    co_return answer == nullptr ? std::nullopt : std::optional(parseUsedFonts(answer->text));
}

} // namespace kerlune
