#pragma once

#include "Platform/ScriptEngine.h"

#include <functional>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace kerlune {

// Answers each script as a test says, and keeps the scripts.
class MadeScriptEngine final : public ScriptEngine {
public:
    using Answer = std::function<Result(const std::string &source)>;

    explicit MadeScriptEngine(Answer answer)
        : m_answer(std::move(answer))
    {}

    void setAnswer(Answer answer)
    {
        const std::scoped_lock lock(m_mutex);
        m_answer = std::move(answer);
    }

    Result run(const std::string &source) override
    {
        std::unique_lock lock(m_mutex);
        m_sources.push_back(source);
        const Answer answer = m_answer;
        lock.unlock();
        return answer(source);
    }

    std::vector<std::string> sources() const
    {
        const std::scoped_lock lock(m_mutex);
        return m_sources;
    }

private:
    Answer m_answer;
    mutable std::mutex m_mutex;
    std::vector<std::string> m_sources;
};

} // namespace kerlune
