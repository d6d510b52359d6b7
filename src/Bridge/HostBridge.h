#pragma once

#include "Bridge/AppleEventRunner.h"
#include "Bridge/ApplyResult.h"
#include "Bridge/Host.h"
#include "Bridge/ProcessRunner.h"
#include "Model/FontRecord.h"

#include <QCoroTask>

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kerlune {

// Gives the text that is selected in a running host a font, by a script.
//
// Thread: main.
// Errors: only as an ApplyResult.
class HostBridge final {
public:
    using ApplyResult = kerlune::ApplyResult;
    using RunningHosts = std::function<std::vector<HostApp>()>; // the one that was in front last comes first

    struct Places {
        std::filesystem::path scripts;                  // the files sent to the hosts
        std::function<std::filesystem::path()> resolve; // where DaVinci Resolve is installed; asked at each use
    };

    HostBridge(ScriptEngine &engine, const Places &places, RunningHosts runningHosts);

    QCoro::Task<ApplyResult> apply(FontRecordPointer record, HostApp target);
    QCoro::Task<ApplyResult> applyToFrontmost(FontRecordPointer record);

    std::optional<HostApp> frontmost() const; // the running host that was in front last
    // Good as long as the bridge.
    Host &host(HostApp app) const { return *m_hosts.at(app); }

    static ApplyResult noHostRuns(); // what applying to the frontmost one comes to then

    static std::string undoName(); // of the change, in the menu of a host

    // What an answer means: "OK|" with the number of items changed and perhaps a note after a further "|", or "ERR|"
    // with a message.
    static ApplyResult interpret(const ScriptOutcome &outcome, HostApp target);
    // The message of a note or error: what begins with "@" is a code with arguments, all else says it itself.
    static std::string describe(std::string_view text, HostApp target);

private:
    AppleEventRunner m_appleEvents;
    ProcessRunner m_processes;
    std::map<HostApp, std::unique_ptr<Host>> m_hosts; // one for each app
    RunningHosts m_runningHosts;
};

} // namespace kerlune
