#pragma once

#include <cstdint>
#include <functional>

namespace kerlune {

// Keyboard shortcuts that work while another program has the focus.
//
// Thread: main; what is called back is called there, from the event loop and never from within registerKey().
// Errors: told to `failed`, at once or later: some sessions ask the user first.
class HotKeys {
public:
    // Bits of the modifiers of a key.
    static constexpr std::uint32_t kSuper = 0x100;
    static constexpr std::uint32_t kShift = 0x200;
    static constexpr std::uint32_t kAlt = 0x800;
    static constexpr std::uint32_t kControl = 0x1000;

    static constexpr std::uint32_t kKeyV = 9; // key codes are those of HIToolbox's Events.h (kVK_ANSI_V)

    enum class Failure {
        Unavailable, // the session lets no program have such keys, or does not know this one
        Taken,       // by another program
        Refused,     // by the user
    };
    using Pressed = std::function<void(std::uint32_t identifier)>;
    using Failed = std::function<void(Failure)>;

    virtual ~HotKeys() = default;

    // The identifier tells the keys of this process apart; one that is registered already is replaced.
    virtual void registerKey(std::uint32_t identifier, std::uint32_t keyCode, std::uint32_t modifiers, Pressed pressed,
                             Failed failed) = 0;
    virtual void unregisterKey(std::uint32_t identifier) = 0; // nothing is called back for it afterwards
};

} // namespace kerlune
