#pragma once

#include "Bridge/ScriptOutcome.h"
#include "Platform/ScriptEngine.h"

#include <QCoroTask>
#include <QThreadPool>

#include <string>

namespace kerlune {

// Runs AppleScripts one at a time, in the order in which they come, on a thread of its own. There is no time limit: a
// script that needs one says so itself.
//
// Thread: main. What still waits when it goes is run to its end first.
// Errors: only as an Outcome.
class AppleEventRunner final {
public:
    using Outcome = ScriptOutcome;

    enum class Returns { Text, List }; // the items of a list are joined by line feeds

    explicit AppleEventRunner(ScriptEngine &engine); // must outlive the runner

    QCoro::Task<Outcome> run(std::string source, Returns returns = Returns::Text);

private:
    ScriptEngine &m_engine;
    QThreadPool m_queue;
};

} // namespace kerlune
