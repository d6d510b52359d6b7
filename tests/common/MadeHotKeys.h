#pragma once

#include "Platform/HotKeys.h"

#include <cstdint>
#include <map>
#include <utility>

namespace kerlune {

// Keys that are pressed, and fail, when a test says so.
class MadeHotKeys final : public HotKeys {
public:
    struct Key {
        std::uint32_t keyCode = 0;
        std::uint32_t modifiers = 0;
        Pressed pressed;
        Failed failed;
    };

    void registerKey(std::uint32_t identifier, std::uint32_t keyCode, std::uint32_t modifiers, Pressed pressed,
                     Failed failed) override
    {
        keys[identifier] = {keyCode, modifiers, std::move(pressed), std::move(failed)};
        ++registrations;
    }
    void unregisterKey(std::uint32_t identifier) override { keys.erase(identifier); }

    std::map<std::uint32_t, Key> keys;
    int registrations = 0;
};

} // namespace kerlune
