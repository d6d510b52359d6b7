#pragma once

#include "Bridge/ScriptOutcome.h"

#include <QFuture>
#include <QPromise>

#include <mutex>
#include <optional>

namespace kerlune {

// Lets a waiting caller go on exactly once, whichever of several events comes first. One that goes without any of them
// fails.
//
// Thread: any.
class ResumeOnce final {
public:
    ResumeOnce();
    ~ResumeOnce();
    ResumeOnce(const ResumeOnce &) = delete;
    ResumeOnce &operator=(const ResumeOnce &) = delete;

    QFuture<ScriptOutcome> outcome() const { return m_outcome; }

    void resume(ScriptOutcome outcome); // nothing after the first time

private:
    std::mutex m_lock;
    std::optional<QPromise<ScriptOutcome>> m_continuation;
    QFuture<ScriptOutcome> m_outcome;
};

} // namespace kerlune
