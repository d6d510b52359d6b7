#pragma once

#include "Platform/HotKeys.h"

#include <cstdint>
#include <functional>

namespace kerlune {

// The one keyboard shortcut that works while another program is in front.
//
// Thread: main.
class HotKeyCenter final {
public:
    using Failed = HotKeys::Failed;

    static constexpr std::uint32_t kKeyCode = HotKeys::kKeyV;
    static constexpr std::uint32_t kModifiers = HotKeys::kSuper | HotKeys::kAlt;

    static HotKeyCenter &shared(); // that of the process
    HotKeyCenter() = default;

    void use(HotKeys *keys); // the system's, or null; must outlive the center or give way to another before it goes

    // In place of what was registered before. The action runs from the event loop.
    void registerKey(std::uint32_t keyCode, std::uint32_t modifiers, std::function<void()> action, Failed failed = {});
    void unregister();

private:
    void pressed(std::uint32_t identifier);

    HotKeys *m_keys = nullptr;
    bool m_isRegistered = false;
    std::function<void()> m_action;
};

} // namespace kerlune
