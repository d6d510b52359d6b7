#pragma once

#include <cstdint>
#include <string_view>

namespace kerlune {

// A key by the character or function that it has in X11 and in the portals.
struct MacKey {
    std::uint32_t keySym;  // X11, keysymdef.h
    std::string_view name; // of that, without XK_
};

// The key of a key code of HIToolbox's Events.h: letters, digits, space and function keys; nullptr for others.
const MacKey *macKey(std::uint32_t keyCode);

} // namespace kerlune
