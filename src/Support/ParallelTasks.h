#pragma once

#include <tbb/task_group.h>

#include <atomic>
#include <utility>

namespace kerlune {

// Tasks that run on other cores while their caller goes on. What the caller wrote before run() is seen by the task, and
// what the tasks wrote by the caller after wait(). On a single core they run in wait().
//
// Thread: the one that made it. No task outlives it. wait() helps with what is to be done: inside a parallel loop that
// may be a part of this loop.
class ParallelTasks final {
public:
    ParallelTasks() = default;
    ~ParallelTasks() { wait(); }
    ParallelTasks(const ParallelTasks &) = delete;
    ParallelTasks &operator=(const ParallelTasks &) = delete;

    template <typename Task>
    void run(Task task)
    {
        // The scheduler orders all this itself, but in a library that the thread sanitizer cannot see into.
        m_begun.fetch_add(1, std::memory_order_release);
        m_group.run([this, task = std::move(task)] {
            m_begun.load(std::memory_order_acquire);
            task();
            m_ended.fetch_add(1, std::memory_order_release);
        });
    }

    void wait()
    {
        m_group.wait();
        m_ended.load(std::memory_order_acquire);
    }

private:
    std::atomic<int> m_begun = 0;
    std::atomic<int> m_ended = 0;
    tbb::task_group m_group;
};

} // namespace kerlune
