#pragma once

#include <string_view>

namespace kerlune {

// What the extension of a path says, in upper or lower case. Nothing is read.
//
// Thread: any.

// A format that desktop programs use: otf, ttf, ttc, otc, dfont.
bool hasDesktopFontName(std::string_view path);

// One of these, or a format of the web: woff, woff2.
bool hasFontName(std::string_view path);

} // namespace kerlune
