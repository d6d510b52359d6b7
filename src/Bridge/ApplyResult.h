#pragma once

#include "Bridge/HostApp.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

namespace kerlune {

// What came of applying a font in a host.
namespace ApplyOutcome {

struct Applied {
    std::int64_t count = 0; // items changed
    HostApp target = HostApp::photoshop;
    std::optional<std::string> note = {};

    bool operator==(const Applied &) const = default;
};

struct Failed {
    std::string message; // for the user
    std::optional<HostApp> target = {};

    bool operator==(const Failed &) const = default;
};

struct NotAuthorized {
    HostApp target = HostApp::photoshop;

    bool operator==(const NotAuthorized &) const = default;
};

struct NotRunning {
    HostApp target = HostApp::photoshop;

    bool operator==(const NotRunning &) const = default;
};

} // namespace ApplyOutcome

using ApplyResult =
    std::variant<ApplyOutcome::Applied, ApplyOutcome::Failed, ApplyOutcome::NotAuthorized, ApplyOutcome::NotRunning>;

// Why nothing was changed, for the user; empty where something was.
std::string failureMessage(const ApplyResult &result);

} // namespace kerlune
