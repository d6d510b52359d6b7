#pragma once

#include "Platform/HotKeyCalls.h"
#include "Platform/HotKeys.h"
#include "Platform/Linux/X11Keyboard.h"

#include <compare>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace kerlune {

class X11Connection;

// Keys grabbed from the X server, whatever locks are on. They follow changes of the keyboard: a key that the new one
// does not have is back with the next that has it. A key that is held down is pressed once.
//
// Thread: main; registering waits for the X server.
// Errors: Taken when another program has grabbed the key; Unavailable when the keyboard has no such key, or the server
// is gone.
class X11HotKeys final : public HotKeys {
public:
    // Of the server that DISPLAY names; none where there is none.
    static std::unique_ptr<X11HotKeys> create();

    ~X11HotKeys() override;

    void registerKey(std::uint32_t identifier, std::uint32_t keyCode, std::uint32_t modifiers, Pressed pressed,
                     Failed failed) override;
    void unregisterKey(std::uint32_t identifier) override;

private:
    struct Grab {
        std::uint8_t keyCode; // the server's
        std::uint16_t modifiers;

        auto operator<=>(const Grab &) const = default;
    };
    struct Key {
        std::uint32_t keySym;
        std::uint32_t modifiers; // bits of HotKeys
        std::vector<Grab> grabs;
    };

    explicit X11HotKeys(std::unique_ptr<X11Connection> connection);

    void readEvents();
    void readKeyboard();
    void lose();
    void notePress(const Grab &pressed, std::uint32_t time);
    std::vector<Grab> grabsFor(const Key &key) const;
    std::optional<Failure> take(const std::vector<Grab> &grabs) const; // all or none
    void release(const std::vector<Grab> &grabs) const;                // but for those that other keys have too

    std::unique_ptr<X11Connection> m_connection;
    HotKeyCalls m_calls;
    X11Keyboard m_keyboard;
    std::map<std::uint32_t, Key> m_keys;
    std::map<std::uint8_t, std::uint32_t> m_releases; // by the server's key code, the time of the last one
};

} // namespace kerlune
