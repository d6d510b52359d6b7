#pragma once

#include "Bridge/ScriptOutcome.h"

#include <QCoroTask>
#include <QObject>

#include <chrono>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace kerlune {

// Runs child processes that answer with a protocol line.
//
// The last line of a child's standard output that begins with "OK|" or "ERR|" is its answer. Without one, it has
// failed, with its exit status (or the signal that ended it) and the end of what it wrote to standard error. Only the
// child itself is waited for, not what it has started. It reads nothing.
//
// Thread: main. Children that still run when the runner goes are ended.
// Errors: only as an Outcome.
class ProcessRunner final {
public:
    using Outcome = ScriptOutcome;
    using Arguments = std::vector<std::string>;
    using Environment = std::map<std::string, std::string>; // variables besides or in place of those of this process

    // A child that is told to end and does not is killed after this time.
    explicit ProcessRunner(std::chrono::milliseconds grace = std::chrono::seconds(1));
    ~ProcessRunner();
    ProcessRunner(const ProcessRunner &) = delete;
    ProcessRunner &operator=(const ProcessRunner &) = delete;

    // `timeout` in seconds.
    QCoro::Task<Outcome> run(std::filesystem::path executable, Arguments arguments, Environment environment,
                             double timeout);

private:
    std::chrono::milliseconds m_grace;
    QObject m_children;
};

} // namespace kerlune
