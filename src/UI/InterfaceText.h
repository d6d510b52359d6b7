#pragma once

#include <QString>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace kerlune {

// The window's texts, as Qt's classes take them; see Support/Localization.h.

QString uiText(const char *french);
QString uiText(const char *french, std::initializer_list<QString> arguments); // for the places %1 … %9
QString uiCount(const char *singular, const char *plural, std::int64_t count);

// A name from a font, a file or the user as a line of the window: control characters and line ends become spaces.
// To be shown as plain text: it may look like markup.
QString shown(std::string_view utf8);

// The same for places that take markup, such as tool tips.
QString shownAsMarkup(std::string_view utf8);

} // namespace kerlune
