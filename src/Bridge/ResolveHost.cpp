#include "Bridge/ResolveHost.h"

#include "Bridge/HostBridge.h"
#include "Support/Localization.h"

#include <system_error>
#include <utility>

namespace kerlune {

namespace {

namespace fs = std::filesystem;

constexpr double kResolveTimeout = 20; // seconds; listing the fonts of a large library takes some

bool isFile(const fs::path &path)
{
    std::error_code error;
    return fs::is_regular_file(path, error);
}

} // namespace

ResolveHost::ResolveHost(ProcessRunner &runner, fs::path scripts, Folder resolve)
    : m_runner(runner)
    , m_scripts(std::move(scripts))
    , m_resolve(std::move(resolve))
{}

QCoro::Task<ApplyResult> ResolveHost::apply(FontRecordPointer record)
{
    constexpr HostApp app = HostApp::davinciResolve;
    const fs::path script = m_scripts / (scriptName(app) + ".py");
    if (!isFile(script))
        co_return ApplyOutcome::Failed{localized("Script « resolve.py » introuvable dans l'app."), app};
    const fs::path resolve = m_resolve();
    const fs::path python = resolve / "Contents/Applications/ResolvePython";
    if (!isFile(python)) {
        co_return ApplyOutcome::Failed{
            localized("Python embarqué introuvable : DaVinci Resolve 21.1 ou plus récent est requis."), app};
    }
    ProcessRunner::Arguments arguments{script.string(), record->family, record->style};
    ProcessRunner::Environment environment{{"KERLUNE_UNDO_NAME", HostBridge::undoName()},
                                           {"KERLUNE_RESOLVE_PATH", resolve.string()}};
    const auto outcome = co_await m_runner.run(python, std::move(arguments), std::move(environment), kResolveTimeout);
    co_return HostBridge::interpret(outcome, app);
}

} // namespace kerlune
