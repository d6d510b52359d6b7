#include "Platform/Linux/MacKeys.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kerlune {

namespace {

constexpr std::uint32_t kF1 = 0xffbe; // XK_F1; those of Latin-1 are the characters themselves

using MacKeyEntry = std::pair<std::uint32_t, MacKey>;

constexpr std::array kMacKeys{
    MacKeyEntry{0x00, MacKey{'a', "a"}},        MacKeyEntry{0x0b, MacKey{'b', "b"}},
    MacKeyEntry{0x08, MacKey{'c', "c"}},        MacKeyEntry{0x02, MacKey{'d', "d"}},
    MacKeyEntry{0x0e, MacKey{'e', "e"}},        MacKeyEntry{0x03, MacKey{'f', "f"}},
    MacKeyEntry{0x05, MacKey{'g', "g"}},        MacKeyEntry{0x04, MacKey{'h', "h"}},
    MacKeyEntry{0x22, MacKey{'i', "i"}},        MacKeyEntry{0x26, MacKey{'j', "j"}},
    MacKeyEntry{0x28, MacKey{'k', "k"}},        MacKeyEntry{0x25, MacKey{'l', "l"}},
    MacKeyEntry{0x2e, MacKey{'m', "m"}},        MacKeyEntry{0x2d, MacKey{'n', "n"}},
    MacKeyEntry{0x1f, MacKey{'o', "o"}},        MacKeyEntry{0x23, MacKey{'p', "p"}},
    MacKeyEntry{0x0c, MacKey{'q', "q"}},        MacKeyEntry{0x0f, MacKey{'r', "r"}},
    MacKeyEntry{0x01, MacKey{'s', "s"}},        MacKeyEntry{0x11, MacKey{'t', "t"}},
    MacKeyEntry{0x20, MacKey{'u', "u"}},        MacKeyEntry{0x09, MacKey{'v', "v"}},
    MacKeyEntry{0x0d, MacKey{'w', "w"}},        MacKeyEntry{0x07, MacKey{'x', "x"}},
    MacKeyEntry{0x10, MacKey{'y', "y"}},        MacKeyEntry{0x06, MacKey{'z', "z"}},
    MacKeyEntry{0x1d, MacKey{'0', "0"}},        MacKeyEntry{0x12, MacKey{'1', "1"}},
    MacKeyEntry{0x13, MacKey{'2', "2"}},        MacKeyEntry{0x14, MacKey{'3', "3"}},
    MacKeyEntry{0x15, MacKey{'4', "4"}},        MacKeyEntry{0x17, MacKey{'5', "5"}},
    MacKeyEntry{0x16, MacKey{'6', "6"}},        MacKeyEntry{0x1a, MacKey{'7', "7"}},
    MacKeyEntry{0x1c, MacKey{'8', "8"}},        MacKeyEntry{0x19, MacKey{'9', "9"}},
    MacKeyEntry{0x31, MacKey{' ', "space"}},    MacKeyEntry{0x7a, MacKey{kF1, "F1"}},
    MacKeyEntry{0x78, MacKey{kF1 + 1, "F2"}},   MacKeyEntry{0x63, MacKey{kF1 + 2, "F3"}},
    MacKeyEntry{0x76, MacKey{kF1 + 3, "F4"}},   MacKeyEntry{0x60, MacKey{kF1 + 4, "F5"}},
    MacKeyEntry{0x61, MacKey{kF1 + 5, "F6"}},   MacKeyEntry{0x62, MacKey{kF1 + 6, "F7"}},
    MacKeyEntry{0x64, MacKey{kF1 + 7, "F8"}},   MacKeyEntry{0x65, MacKey{kF1 + 8, "F9"}},
    MacKeyEntry{0x6d, MacKey{kF1 + 9, "F10"}},  MacKeyEntry{0x67, MacKey{kF1 + 10, "F11"}},
    MacKeyEntry{0x6f, MacKey{kF1 + 11, "F12"}}, MacKeyEntry{0x69, MacKey{kF1 + 12, "F13"}},
    MacKeyEntry{0x6b, MacKey{kF1 + 13, "F14"}}, MacKeyEntry{0x71, MacKey{kF1 + 14, "F15"}},
    MacKeyEntry{0x6a, MacKey{kF1 + 15, "F16"}}, MacKeyEntry{0x40, MacKey{kF1 + 16, "F17"}},
    MacKeyEntry{0x4f, MacKey{kF1 + 17, "F18"}}, MacKeyEntry{0x50, MacKey{kF1 + 18, "F19"}},
    MacKeyEntry{0x5a, MacKey{kF1 + 19, "F20"}},
};

} // namespace

const MacKey *macKey(std::uint32_t keyCode)
{
    const auto *const found = std::find_if(kMacKeys.begin(), kMacKeys.end(),
                                           [keyCode](const MacKeyEntry &entry) { return entry.first == keyCode; });
    return found == kMacKeys.end() ? nullptr : &found->second;
}

} // namespace kerlune
