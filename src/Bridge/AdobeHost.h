#pragma once

#include "Bridge/AppleEventRunner.h"
#include "Bridge/Host.h"

#include <filesystem>

namespace kerlune {

// A program that runs JavaScript, which an AppleScript hands it.
class AdobeHost final : public Host {
public:
    // The runner must outlive it. The script is a template in that folder.
    AdobeHost(HostApp app, AppleEventRunner &runner, std::filesystem::path scripts);

    QCoro::Task<ApplyResult> apply(FontRecordPointer record) override;

private:
    HostApp m_app;
    AppleEventRunner &m_runner;
    std::filesystem::path m_scripts;
};

} // namespace kerlune
