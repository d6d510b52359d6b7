#pragma once

#include <cstdint>
#include <string>
#include <variant>

namespace kerlune {

struct ScriptSuccess {
    std::string text; // what it returned

    bool operator==(const ScriptSuccess &) const = default;
};

struct ScriptFailure {
    static constexpr std::int64_t kNotStarted = -1; // or an error without a number
    static constexpr std::int64_t kTimedOut = -2;

    std::int64_t code = kNotStarted; // the script's error number, the child's exit status, or one of those above
    std::string message = {};

    bool operator==(const ScriptFailure &) const = default;
};

// What came of a script or a child process.
using ScriptOutcome = std::variant<ScriptSuccess, ScriptFailure>;

} // namespace kerlune
