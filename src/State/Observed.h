#pragma once

#include <QProperty>

#include <utility>

namespace kerlune {

// A field that everybody reads and observes, and only its owner writes.
//
// Thread: the owner's.
template <typename Value, typename Owner>
class Observed final {
public:
    decltype(auto) operator()() const { return m_value.value(); }

    // The function is called after each change, until what is returned goes.
    template <typename Function>
    [[nodiscard]] QPropertyNotifier observe(Function function)
    {
        return m_value.addNotifier(std::move(function));
    }

private:
    friend Owner;

    Observed() = default;
    explicit Observed(Value value)
        : m_value(std::move(value))
    {}

    void set(Value value) { m_value = std::move(value); }

    QProperty<Value> m_value;
};

} // namespace kerlune
