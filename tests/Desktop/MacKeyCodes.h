#pragma once

#include "Platform/HotKeys.h"

namespace kerlune {

// HIToolbox, Events.h
inline constexpr std::uint32_t kMacV = 0x09;
inline constexpr std::uint32_t kMacB = 0x0b;
inline constexpr std::uint32_t kMacOne = 0x12;
inline constexpr std::uint32_t kMacReturn = 0x24;
inline constexpr std::uint32_t kMacM = 0x2e;
inline constexpr std::uint32_t kMacSpace = 0x31;
inline constexpr std::uint32_t kMacF5 = 0x60;

inline constexpr std::uint32_t kAltSuper = HotKeys::kAlt | HotKeys::kSuper;

} // namespace kerlune
