#pragma once

#include "Platform/ScriptEngine.h"

#include <memory>
#include <string>
#include <vector>

struct duk_hthread;

namespace kerlune {

// A host whose objects are modelled in JavaScript (tests/Bridge/models), in an interpreter that offers no more than
// ECMAScript 3 does.
class HostModel final {
public:
    explicit HostModel(const std::string &name);

    std::string eval(const std::string &javaScript); // its value as text; throws what the script throws

private:
    struct Deleter {
        void operator()(duk_hthread *context) const;
    };
    std::unique_ptr<duk_hthread, Deleter> m_context;
};

// A piece of AppleScript as its own rules read it: a word, or a string without its quotation marks and escapes.
struct AppleScriptToken {
    enum class Kind { Word, String } kind = Kind::Word;
    std::string text = {};

    bool operator==(const AppleScriptToken &) const = default;
};
std::vector<AppleScriptToken> readAppleScript(const std::string &source); // throws when a string has no end

// Runs the JavaScript that an AppleScript holds in the model of the host that it addresses.
class ModelEngine final : public ScriptEngine {
public:
    explicit ModelEngine(HostModel &host)
        : m_host(host)
    {}

    Result run(const std::string &source) override;

    std::vector<AppleScriptToken> script; // the last one

private:
    HostModel &m_host;
};

} // namespace kerlune
