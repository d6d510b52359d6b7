#include "Bridge/ResumeOnce.h"

#include "Support/Localization.h"

#include <utility>

namespace kerlune {

ResumeOnce::ResumeOnce()
    : m_continuation(std::in_place)
    , m_outcome(m_continuation->future())
{
    m_continuation->start();
}

ResumeOnce::~ResumeOnce()
{
    resume(ScriptFailure{ScriptFailure::kNotStarted, localized("Erreur inconnue")});
}

void ResumeOnce::resume(ScriptOutcome outcome)
{
    std::optional<QPromise<ScriptOutcome>> continuation;
    {
        const std::lock_guard guard(m_lock);
        continuation = std::move(m_continuation);
        m_continuation.reset();
    }
    if (!continuation)
        return;
    continuation->addResult(std::move(outcome));
    continuation->finish();
}

} // namespace kerlune
