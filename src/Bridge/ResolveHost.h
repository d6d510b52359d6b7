#pragma once

#include "Bridge/Host.h"
#include "Bridge/ProcessRunner.h"

#include <filesystem>

namespace kerlune {

// DaVinci Resolve, which a Python script drives from outside, run by the interpreter that comes with Resolve.
class ResolveHost final : public Host {
public:
    // The runner must outlive it. `resolve` is where Resolve is installed.
    ResolveHost(ProcessRunner &runner, std::filesystem::path scripts, std::filesystem::path resolve);

    QCoro::Task<ApplyResult> apply(FontRecordPointer record) override;

private:
    ProcessRunner &m_runner;
    std::filesystem::path m_scripts;
    std::filesystem::path m_resolve;
};

} // namespace kerlune
