#pragma once

#include "Platform/ScriptEngine.h"

namespace kerlune {

// Linux has no such scripts: each ends as if the program that it addresses were not running.
class NoScriptEngine final : public ScriptEngine {
public:
    static constexpr std::int64_t kNotRunning = -600; // procNotFound of the Mac's Process Manager

    Result run(const std::string &) override { return Error{kNotRunning}; }
};

} // namespace kerlune
