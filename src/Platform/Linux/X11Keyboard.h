#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

struct xcb_connection_t;

namespace kerlune {

// Which keys an X server's keyboard has at one moment, and which of them are its modifiers. Modifiers are masks of the
// core protocol (ShiftMask … Mod5Mask).
class X11Keyboard final {
public:
    static std::optional<X11Keyboard> read(xcb_connection_t *connection); // waits; none when the connection is lost

    // The keys that yield the symbol: without Shift or AltGr if there are any such, in whatever group. Empty if none.
    std::vector<std::uint8_t> keyCodes(std::uint32_t keySym) const;
    // For the bits of HotKeys; none when the keyboard has no key for one of them.
    std::optional<std::uint16_t> modifiers(std::uint32_t hotKeyModifiers) const;
    // Those that stay on until they are pressed again.
    std::uint16_t locks() const;

private:
    std::uint32_t keySym(std::uint8_t keyCode, std::uint8_t column) const;
    std::uint16_t modifierWith(std::uint32_t keySym) const; // 0 when none has a key that yields it

    std::uint8_t m_firstKeyCode = 0;
    std::uint8_t m_columns = 0;
    std::vector<std::uint32_t> m_keySyms; // m_columns for each key from m_firstKeyCode on
    std::array<std::vector<std::uint8_t>, 8> m_modifierKeys;
};

} // namespace kerlune
