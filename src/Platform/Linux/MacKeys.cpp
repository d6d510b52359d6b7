#include "Platform/Linux/MacKeys.h"

#include <algorithm>
#include <array>

namespace kerlune {

namespace {

constexpr std::uint32_t kF1 = 0xffbe; // XK_F1; those of Latin-1 are the characters themselves

struct MacKeyEntry {
    std::uint32_t code;
    MacKey key;
};

constexpr std::array kMacKeys{
    MacKeyEntry{0x00, {'a', "a"}},        MacKeyEntry{0x0b, {'b', "b"}},        MacKeyEntry{0x08, {'c', "c"}},
    MacKeyEntry{0x02, {'d', "d"}},        MacKeyEntry{0x0e, {'e', "e"}},        MacKeyEntry{0x03, {'f', "f"}},
    MacKeyEntry{0x05, {'g', "g"}},        MacKeyEntry{0x04, {'h', "h"}},        MacKeyEntry{0x22, {'i', "i"}},
    MacKeyEntry{0x26, {'j', "j"}},        MacKeyEntry{0x28, {'k', "k"}},        MacKeyEntry{0x25, {'l', "l"}},
    MacKeyEntry{0x2e, {'m', "m"}},        MacKeyEntry{0x2d, {'n', "n"}},        MacKeyEntry{0x1f, {'o', "o"}},
    MacKeyEntry{0x23, {'p', "p"}},        MacKeyEntry{0x0c, {'q', "q"}},        MacKeyEntry{0x0f, {'r', "r"}},
    MacKeyEntry{0x01, {'s', "s"}},        MacKeyEntry{0x11, {'t', "t"}},        MacKeyEntry{0x20, {'u', "u"}},
    MacKeyEntry{0x09, {'v', "v"}},        MacKeyEntry{0x0d, {'w', "w"}},        MacKeyEntry{0x07, {'x', "x"}},
    MacKeyEntry{0x10, {'y', "y"}},        MacKeyEntry{0x06, {'z', "z"}},        MacKeyEntry{0x1d, {'0', "0"}},
    MacKeyEntry{0x12, {'1', "1"}},        MacKeyEntry{0x13, {'2', "2"}},        MacKeyEntry{0x14, {'3', "3"}},
    MacKeyEntry{0x15, {'4', "4"}},        MacKeyEntry{0x17, {'5', "5"}},        MacKeyEntry{0x16, {'6', "6"}},
    MacKeyEntry{0x1a, {'7', "7"}},        MacKeyEntry{0x1c, {'8', "8"}},        MacKeyEntry{0x19, {'9', "9"}},
    MacKeyEntry{0x31, {' ', "space"}},    MacKeyEntry{0x7a, {kF1, "F1"}},       MacKeyEntry{0x78, {kF1 + 1, "F2"}},
    MacKeyEntry{0x63, {kF1 + 2, "F3"}},   MacKeyEntry{0x76, {kF1 + 3, "F4"}},   MacKeyEntry{0x60, {kF1 + 4, "F5"}},
    MacKeyEntry{0x61, {kF1 + 5, "F6"}},   MacKeyEntry{0x62, {kF1 + 6, "F7"}},   MacKeyEntry{0x64, {kF1 + 7, "F8"}},
    MacKeyEntry{0x65, {kF1 + 8, "F9"}},   MacKeyEntry{0x6d, {kF1 + 9, "F10"}},  MacKeyEntry{0x67, {kF1 + 10, "F11"}},
    MacKeyEntry{0x6f, {kF1 + 11, "F12"}}, MacKeyEntry{0x69, {kF1 + 12, "F13"}}, MacKeyEntry{0x6b, {kF1 + 13, "F14"}},
    MacKeyEntry{0x71, {kF1 + 14, "F15"}}, MacKeyEntry{0x6a, {kF1 + 15, "F16"}}, MacKeyEntry{0x40, {kF1 + 16, "F17"}},
    MacKeyEntry{0x4f, {kF1 + 17, "F18"}}, MacKeyEntry{0x50, {kF1 + 18, "F19"}}, MacKeyEntry{0x5a, {kF1 + 19, "F20"}},
};

} // namespace

const MacKey *macKey(std::uint32_t keyCode)
{
    const auto *const found = std::find_if(kMacKeys.begin(), kMacKeys.end(),
                                           [keyCode](const MacKeyEntry &entry) { return entry.code == keyCode; });
    return found == kMacKeys.end() ? nullptr : &found->key;
}

} // namespace kerlune
