#pragma once

#include "Bridge/HostBridge.h"
#include "Platform/ScriptEngine.h"
#include "TempFolder.h"

#include <QCoroTask>
#include <duktape.h>

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace kerlune {

// What came after the third edition, as far as the interpreter has it.
inline constexpr const char *kForgetLaterEditions = R"(
(function () {
    var later = [
        [Array, "isArray from of"],
        [Array.prototype, "every filter forEach indexOf lastIndexOf map reduce reduceRight some find includes"],
        [String.prototype, "trim startsWith endsWith includes repeat codePointAt padStart padEnd"],
        [String, "fromCodePoint"],
        [Function.prototype, "bind"],
        [Date, "now"],
        [Date.prototype, "toISOString toJSON"],
        [Object, "assign create defineProperties defineProperty entries freeze getOwnPropertyDescriptor " +
                 "getOwnPropertyNames getPrototypeOf is keys seal setPrototypeOf values"]
    ];
    for (var i = 0; i < later.length; i++) {
        var names = later[i][1].split(" ");
        for (var j = 0; j < names.length; j++) {
            delete later[i][0][names[j]];
        }
    }
    var everyone = (function () { return this; }());
    names = ["JSON", "Reflect", "Proxy", "Symbol", "Promise", "TextEncoder", "TextDecoder", "performance", "globalThis"];
    for (i = 0; i < names.length; i++) {
        delete everyone[names[i]];
    }
}());
)";

// A host whose objects are modelled in JavaScript (tests/Bridge/models), in an interpreter that offers no more than
// ECMAScript 3 does.
class HostModel final {
public:
    explicit HostModel(const std::string &name)
        : m_context(duk_create_heap_default())
    {
        eval("var defineProperty = Object.defineProperty;"); // for the models alone
        eval(readFile(std::string(KERLUNE_HOST_MODELS) + "/" + name + ".js") + "\n;0");
        eval(kForgetLaterEditions);
    }

    // Its value as text; throws what the script throws.
    std::string eval(const std::string &javaScript)
    {
        duk_context *context = m_context.get();
        const bool isThrown = duk_peval_lstring(context, javaScript.data(), javaScript.size()) != 0;
        duk_size_t length = 0;
        const char *text = duk_safe_to_lstring(context, -1, &length);
        std::string result(text, length);
        duk_pop(context);
        if (isThrown)
            throw std::runtime_error(result);
        return result;
    }

private:
    struct Deleter {
        void operator()(duk_hthread *context) const { duk_destroy_heap(context); }
    };
    std::unique_ptr<duk_hthread, Deleter> m_context;
};

// A piece of AppleScript as its own rules read it: a word, or a string without its quotation marks and escapes.
struct AppleScriptToken {
    enum class Kind { Word, String } kind = Kind::Word;
    std::string text = {};

    bool operator==(const AppleScriptToken &) const = default;
};

inline std::string stringFrom(const std::string &source, std::size_t &at)
{
    std::string text;
    for (++at; at < source.size() && source[at] != '"'; ++at) {
        if (source[at] != '\\') {
            text += source[at];
            continue;
        }
        constexpr std::string_view kEscapes = "ntr\"\\";
        constexpr std::string_view kCharacters = "\n\t\r\"\\";
        const std::size_t escape = kEscapes.find(source.at(++at));
        if (escape == std::string_view::npos)
            throw std::runtime_error("no such escape in AppleScript");
        text += kCharacters[escape];
    }
    if (at == source.size())
        throw std::runtime_error("a string without an end");
    ++at;
    return text;
}

// Throws when a string has no end.
inline std::vector<AppleScriptToken> readAppleScript(const std::string &source)
{
    constexpr std::string_view kSpace = " \n";
    std::vector<AppleScriptToken> tokens;
    for (std::size_t at = 0; (at = source.find_first_not_of(kSpace, at)) != std::string::npos;) {
        if (source[at] == '"') {
            tokens.push_back({AppleScriptToken::Kind::String, stringFrom(source, at)});
            continue;
        }
        const std::size_t end = std::min(source.find_first_of(" \n\"", at), source.size());
        tokens.push_back({AppleScriptToken::Kind::Word, source.substr(at, end - at)});
        at = end;
    }
    return tokens;
}

// Runs the JavaScript that an AppleScript holds in the model of the host that it addresses.
class ModelEngine final : public ScriptEngine {
public:
    explicit ModelEngine(HostModel &host)
        : m_host(host)
    {}

    Result run(const std::string &source) override
    {
        script = readAppleScript(source);
        try {
            const auto isString = [](const AppleScriptToken &token) {
                return token.kind == AppleScriptToken::Kind::String;
            };
            const auto host = std::find_if(script.begin(), script.end(), isString);
            const auto javaScript = std::find_if(host + 1, script.end(), isString);
            return Descriptor{m_host.eval(javaScript->text)};
        } catch (const std::exception &error) {
            return Error{-2753, error.what()};
        }
    }

    std::vector<AppleScriptToken> script; // the last one

private:
    HostModel &m_host;
};

// A host whose model is spoken to as the bridge does it.
class ModelledHost final {
public:
    ModelledHost(HostApp app, const std::string &model)
        : m_app(app)
        , m_host(model)
    {}

    ApplyResult apply(const std::string &font = "Inter-Bold")
    {
        FontRecord record;
        record.postScriptName = font;
        record.family = "Inter";
        record.style = "Bold";
        return QCoro::waitFor(m_bridge.apply(std::make_shared<const FontRecord>(record), m_app));
    }
    std::string failure(const std::string &font = "Inter-Bold") { return failureMessage(apply(font)); }
    std::vector<UsedFont> fontsOf(const std::vector<std::string> &documents)
    {
        return QCoro::waitFor(m_bridge.host(m_app).usedFonts(documents)).value();
    }
    std::string eval(const std::string &javaScript) { return m_host.eval(javaScript); }
    const std::vector<AppleScriptToken> &script() const { return m_engine.script; }

private:
    HostApp m_app;
    HostModel m_host;
    ModelEngine m_engine{m_host};
    HostBridge m_bridge{m_engine, {.scripts = std::string(KERLUNE_RESOURCES) + "/Bridge", .resolve = {}}, {}};
};

} // namespace kerlune
