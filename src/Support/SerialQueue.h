#pragma once

#include <mutex>
#include <optional>
#include <string>
#include <utility>

namespace kerlune {

// Runs one operation at a time, on the caller's thread; every other caller waits for its turn.
//
// Thread: any. An operation must not call sync() of its own queue: it would wait for itself.
class SerialQueue final {
public:
    explicit SerialQueue(std::string label)
        : m_label(std::move(label))
    {}

    const std::string &label() const { return m_label; }

    template <typename Operation>
    decltype(auto) sync(Operation &&operation)
    {
        const std::lock_guard turn(m_mutex);
        return std::forward<Operation>(operation)();
    }

    // Runs the operation if nobody else's is under way; absent otherwise.
    template <typename Operation>
    auto syncIfFree(Operation &&operation) -> std::optional<decltype(operation())>
    {
        const std::unique_lock turn(m_mutex, std::try_to_lock);
        return turn ? std::optional(std::forward<Operation>(operation)()) : std::nullopt;
    }

private:
    std::string m_label;
    std::mutex m_mutex;
};

} // namespace kerlune
