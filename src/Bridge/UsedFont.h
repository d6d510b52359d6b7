#pragma once

#include <compare>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kerlune {

// A font that a document of a host uses, as the host names it.
struct UsedFont {
    std::string postScriptName; // empty where the host does not tell
    std::optional<std::string> family = {};
    std::optional<std::string> style = {};

    auto operator<=>(const UsedFont &) const = default;
};

// The answer of a script that lists fonts: one to the line, its PostScript name, family and style with a tab after the
// first and the second. What is empty was not told; each font comes once, in the order of the lines.
std::vector<UsedFont> parseUsedFonts(std::string_view answer);

} // namespace kerlune

template <>
struct std::hash<kerlune::UsedFont> {
    std::size_t operator()(const kerlune::UsedFont &font) const noexcept;
};
