#include "Bridge/AppleEventRunner.h"

#include "Bridge/ResumeOnce.h"
#include "Support/Localization.h"

#include <QCoroFuture>

#include <memory>

namespace kerlune {

namespace {

using Returns = AppleEventRunner::Returns;

std::string joined(const std::vector<std::optional<std::string>> &items)
{
    std::string text;
    bool isFirst = true;
    for (const auto &item : items) {
        if (!item)
            continue;
        if (!isFirst)
            text += '\n';
        isFirst = false;
        text += *item;
    }
    return text;
}

ScriptOutcome outcomeOf(const ScriptEngine::Result &result, Returns returns)
{
    if (std::holds_alternative<ScriptEngine::NoScript>(result))
        return ScriptFailure{ScriptFailure::kNotStarted, localized("Script AppleScript invalide.")};
    if (const auto *error = std::get_if<ScriptEngine::Error>(&result)) {
        return ScriptFailure{error->number.value_or(ScriptFailure::kNotStarted),
                             error->message ? *error->message : localized("Erreur inconnue")};
    }
    const auto &descriptor = std::get<ScriptEngine::Descriptor>(result);
    return ScriptSuccess{returns == Returns::List ? joined(descriptor.items) : descriptor.text.value_or("")};
}

} // namespace

AppleEventRunner::AppleEventRunner(ScriptEngine &engine)
    : m_engine(engine)
{
    m_queue.setObjectName(QStringLiteral("app.kerlune.Kerlune.applescript"));
    m_queue.setMaxThreadCount(1);
    m_queue.setExpiryTimeout(-1);
}

QCoro::Task<AppleEventRunner::Outcome> AppleEventRunner::run(std::string source, Returns returns)
{
    const auto caller = std::make_shared<ResumeOnce>();
    const QFuture<Outcome> outcome = caller->outcome();
    const auto script = [&engine = m_engine, source = std::move(source), returns, caller] {
        caller->resume(outcomeOf(engine.run(source), returns));
    };
    m_queue.start(script);
    co_return co_await outcome;
}

} // namespace kerlune
