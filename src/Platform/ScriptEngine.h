#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace kerlune {

// Runs the scripts by which the system lets one program drive another (AppleScript).
//
// Thread: one script at a time, on any thread; blocks until the script has ended.
class ScriptEngine {
public:
    // What a script returned. A value that has no text, or an item of a list that has none, is absent.
    struct Descriptor {
        std::optional<std::string> text = {};
        std::vector<std::optional<std::string>> items = {}; // none when it is no list
    };
    // Why a script ended early, as far as the engine says.
    struct Error {
        std::optional<std::int64_t> number = {};
        std::optional<std::string> message = {};
    };
    struct NoScript {}; // the text is none
    using Result = std::variant<Descriptor, Error, NoScript>;

    virtual ~ScriptEngine() = default;

    virtual Result run(const std::string &source) = 0;
};

} // namespace kerlune
