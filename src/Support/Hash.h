#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace kerlune {

// Folds values into one hash, in the order in which they are fed.
class Hasher final {
public:
    template <typename... Values>
    void feed(const Values &...values)
    {
        (feedOne(values), ...);
    }

    std::size_t value() const { return m_value; }

private:
    template <typename Value>
    void feedOne(const Value &value)
    {
        mix(std::hash<Value>{}(value));
    }

    void feedOne(double value)
    {
        mix(std::bit_cast<std::uint64_t>(value == 0 ? 0.0 : value)); // −0.0 equals +0.0, so it hashes alike
    }

    void feedOne(const std::optional<std::string> &value)
    {
        mix(value ? 1 : 0);
        if (value)
            feedOne(*value);
    }

    // Multiplication by 2^64 divided by the golden ratio spreads each value over all bits.
    void mix(std::size_t hash)
    {
        m_value = (m_value ^ hash) * 0x9E3779B97F4A7C15;
        m_value ^= m_value >> 32;
    }

    std::size_t m_value = 0x9E3779B97F4A7C15;
};

} // namespace kerlune
