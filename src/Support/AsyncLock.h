#pragma once

#include <QCoreApplication>
#include <QCoroTask>

#include <deque>
#include <memory>
#include <utility>

namespace kerlune {

// Lets one coroutine at a time through, in the order in which they came: `const auto turn = co_await lock.turn();`.
// Whoever waits goes on from the event loop. The lock itself may be gone by then; a turn is good nevertheless.
//
// Thread: main.
class AsyncLock final {
    struct Queue {
        bool isTaken = false;
        std::deque<std::coroutine_handle<>> waiting;
    };

public:
    // Ends when it is destroyed.
    class Turn final {
    public:
        explicit Turn(std::shared_ptr<Queue> queue)
            : m_queue(std::move(queue))
        {}
        ~Turn()
        {
            if (m_queue == nullptr)
                return;
            if (m_queue->waiting.empty()) {
                m_queue->isTaken = false;
                return;
            }
            const auto next = m_queue->waiting.front();
            m_queue->waiting.pop_front();
            QMetaObject::invokeMethod(
                QCoreApplication::instance(), [next] { next.resume(); }, Qt::QueuedConnection);
        }
        Turn(Turn &&) noexcept = default;
        Turn(const Turn &) = delete;
        Turn &operator=(const Turn &) = delete;
        Turn &operator=(Turn &&) = delete;

    private:
        std::shared_ptr<Queue> m_queue;
    };

    class Awaiter final {
    public:
        explicit Awaiter(std::shared_ptr<Queue> queue)
            : m_queue(std::move(queue))
        {}
        bool await_ready() { return !std::exchange(m_queue->isTaken, true); }
        void await_suspend(std::coroutine_handle<> waiting) { m_queue->waiting.push_back(waiting); }
        Turn await_resume() { return Turn(m_queue); }

    private:
        std::shared_ptr<Queue> m_queue;
    };

    Awaiter turn() { return Awaiter(m_queue); }

private:
    std::shared_ptr<Queue> m_queue = std::make_shared<Queue>();
};

} // namespace kerlune
