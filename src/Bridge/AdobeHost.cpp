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
    const std::string javaScript = filledTemplate(*script, record->postScriptName, undoName);
    std::string source = appleScriptFor(app, appleScriptCommand(app, javaScript, undoName));
    const auto outcome = co_await m_runner.run(std::move(source));
    co_return HostBridge::interpret(outcome, app);
}

} // namespace kerlune
