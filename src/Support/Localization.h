#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace kerlune {

// Texts that a user sees. The French text is the key and what is shown where no translation is installed; an installed
// QTranslator is asked in the context "Kerlune".
//
// Thread: any, once the translators are installed.

std::string localized(const char *french);

// The same with the places %1 … %9 filled in. An argument is never searched for places itself.
std::string localized(const char *french, std::initializer_list<std::string_view> arguments);

// A text that depends on a number, written %1 in both forms. French takes the singular for 0 and 1. The plural is the
// translation key (with numerus forms).
std::string localizedCount(const char *singular, const char *plural, std::int64_t count);

// Marks a text for translation that localized() is given later, such as one in a table.
constexpr const char *marked(const char *french)
{
    return french;
}

// A whole number for display, in groups of three parted by narrow no-break spaces: 12 480.
std::string groupedDigits(std::int64_t number);

// A number for display with one decimal after the language's own mark: 12,5.
std::string decimalDigits(double number);

// A number of bytes for display, in units of a thousand: 999 octets, 12,5 Ko, 3,0 Mo.
std::string displaySize(std::uint64_t bytes);

} // namespace kerlune
