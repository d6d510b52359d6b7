#pragma once

#include <QUrl>

#include <optional>
#include <string_view>
#include <vector>

namespace kerlune {

// The addresses of fonts in a style sheet: "url(https://…)" up to the closing parenthesis, in their order.
//
// Thread: any.
std::optional<QUrl> firstFontAddress(std::string_view styleSheet); // absent when the first one is no valid address
std::vector<QUrl> allFontAddresses(std::string_view styleSheet);   // the valid ones, each once; 500 at most

} // namespace kerlune
