#pragma once

#include "Bridge/AppleEventRunner.h"
#include "Bridge/Host.h"

#include <filesystem>

namespace kerlune {

// A program that runs JavaScript, which an AppleScript hands it: NAME.jsx applies a font, NAME.fonts.jsx lists those of
// documents, with what these scripts share in fonts.jsxinc.
class AdobeHost final : public Host {
public:
    // The runner must outlive it. The scripts are templates in that folder.
    AdobeHost(HostApp app, AppleEventRunner &runner, std::filesystem::path scripts);

    QCoro::Task<ApplyResult> apply(FontRecordPointer record) override;
    QCoro::Task<std::optional<std::set<std::string>>> documentNames() override;
    QCoro::Task<std::optional<std::vector<UsedFont>>> usedFonts(std::vector<std::string> documents) override;

private:
    HostApp m_app;
    AppleEventRunner &m_runner;
    std::filesystem::path m_scripts;
};

} // namespace kerlune
