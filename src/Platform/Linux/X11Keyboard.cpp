#include "Platform/Linux/X11Keyboard.h"

#include "Platform/HotKeys.h"
#include "Support/Handle.h"

#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <span>

namespace kerlune {

namespace {

// keysymdef.h
constexpr std::uint32_t kScrollLock = 0xff14;
constexpr std::uint32_t kNumLock = 0xff7f;
constexpr std::uint32_t kAltLeft = 0xffe9;
constexpr std::uint32_t kAltRight = 0xffea;
constexpr std::uint32_t kSuperLeft = 0xffeb;
constexpr std::uint32_t kSuperRight = 0xffec;

} // namespace

std::optional<X11Keyboard> X11Keyboard::read(xcb_connection_t *connection)
{
    if (xcb_connection_has_error(connection) != 0)
        return std::nullopt;
    const xcb_setup_t *setup = xcb_get_setup(connection);
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const auto mappingCookie = xcb_get_keyboard_mapping(connection, setup->min_keycode, count);
    const auto modifierCookie = xcb_get_modifier_mapping(connection);
    const Handle<xcb_get_keyboard_mapping_reply_t, std::free> mapping(
        xcb_get_keyboard_mapping_reply(connection, mappingCookie, nullptr));
    const Handle<xcb_get_modifier_mapping_reply_t, std::free> modifiers(
        xcb_get_modifier_mapping_reply(connection, modifierCookie, nullptr));
    if (!mapping || !modifiers)
        return std::nullopt;

    X11Keyboard keyboard;
    keyboard.m_firstKeyCode = setup->min_keycode;
    keyboard.m_columns = mapping->keysyms_per_keycode;
    const std::span symbols(xcb_get_keyboard_mapping_keysyms(mapping.get()), mapping->length);
    keyboard.m_keySyms.assign(symbols.begin(), symbols.end());
    const std::size_t width = modifiers->keycodes_per_modifier;
    const std::span keys(xcb_get_modifier_mapping_keycodes(modifiers.get()), keyboard.m_modifierKeys.size() * width);
    for (std::size_t i = 0; i < keyboard.m_modifierKeys.size(); ++i) {
        const auto own = keys.subspan(i * width, width);
        std::copy_if(own.begin(), own.end(), std::back_inserter(keyboard.m_modifierKeys[i]),
                     [](xcb_keycode_t key) { return key != 0; });
    }
    return keyboard;
}

std::vector<std::uint8_t> X11Keyboard::keyCodes(std::uint32_t keySym) const
{
    const std::size_t count = m_columns == 0 ? 0 : m_keySyms.size() / m_columns;
    std::vector<std::uint8_t> plain;
    std::vector<std::uint8_t> all;
    for (std::size_t i = 0; i < count; ++i) {
        const auto key = static_cast<std::uint8_t>(m_firstKeyCode + i);
        const auto begin = m_keySyms.begin() + static_cast<std::ptrdiff_t>(i * m_columns);
        if (std::find(begin, begin + m_columns, keySym) == begin + m_columns)
            continue;
        all.push_back(key);
        // XKB protocol 12.4: the columns of the core protocol are group 1 without and with Shift, then group 2 so
        if (this->keySym(key, 0) == keySym || this->keySym(key, 2) == keySym)
            plain.push_back(key);
    }
    return plain.empty() ? all : plain;
}

std::uint32_t X11Keyboard::keySym(std::uint8_t keyCode, std::uint8_t column) const
{
    if (keyCode < m_firstKeyCode || column >= m_columns)
        return 0;
    const std::size_t at = std::size_t{m_columns} * (keyCode - m_firstKeyCode) + column;
    return at < m_keySyms.size() ? m_keySyms[at] : 0;
}

std::optional<std::uint16_t> X11Keyboard::modifiers(std::uint32_t hotKeyModifiers) const
{
    struct Meaning {
        std::uint32_t bit;
        std::uint16_t mask;
    };
    const auto either = [this](std::uint32_t left, std::uint32_t right) {
        const std::uint16_t mask = modifierWith(left);
        return mask != 0 ? mask : modifierWith(right);
    };
    std::uint16_t masks = 0;
    for (const Meaning meaning :
         {Meaning{HotKeys::kShift, XCB_MOD_MASK_SHIFT}, Meaning{HotKeys::kControl, XCB_MOD_MASK_CONTROL},
          Meaning{HotKeys::kAlt, either(kAltLeft, kAltRight)},
          Meaning{HotKeys::kSuper, either(kSuperLeft, kSuperRight)}}) {
        if ((hotKeyModifiers & meaning.bit) == 0)
            continue;
        if (meaning.mask == 0)
            return std::nullopt;
        masks |= meaning.mask;
        hotKeyModifiers &= ~meaning.bit;
    }
    return hotKeyModifiers == 0 ? std::optional(masks) : std::nullopt;
}

std::uint16_t X11Keyboard::locks() const
{
    return XCB_MOD_MASK_LOCK | modifierWith(kNumLock) | modifierWith(kScrollLock);
}

std::uint16_t X11Keyboard::modifierWith(std::uint32_t keySym) const
{
    for (std::size_t i = 0; i < m_modifierKeys.size(); ++i) {
        for (const std::uint8_t key : m_modifierKeys[i]) {
            for (std::uint8_t column = 0; column < m_columns; ++column) {
                if (this->keySym(key, column) == keySym)
                    return static_cast<std::uint16_t>(1U << i);
            }
        }
    }
    return 0;
}

} // namespace kerlune
