#pragma once

#include "Bridge/Host.h"
#include "Bridge/ProcessRunner.h"

#include <filesystem>
#include <functional>

namespace kerlune {

// DaVinci Resolve, which a Python script drives from outside, run by the interpreter that comes with Resolve.
class ResolveHost final : public Host {
public:
    using Folder = std::function<std::filesystem::path()>;

    // The runner must outlive it. `resolve` tells where Resolve is installed.
    ResolveHost(ProcessRunner &runner, std::filesystem::path scripts, Folder resolve);

    QCoro::Task<ApplyResult> apply(FontRecordPointer record) override;

private:
    ProcessRunner &m_runner;
    std::filesystem::path m_scripts;
    Folder m_resolve;
};

} // namespace kerlune
