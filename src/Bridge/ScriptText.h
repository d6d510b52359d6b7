#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace kerlune {

// Foreign text in scripts: as a literal it stays text, whatever it holds.

// An AppleScript string, with its quotation marks. Line ends become "\n".
std::string quotedForAppleScript(std::string_view text);

// What may stand between the double quotation marks of a JavaScript string. Line ends become "\n"; the two separators
// that JavaScript also takes for line ends, and other control characters, are written by their numbers.
std::string escapedForJavaScript(std::string_view text);

// The places of a template, each within a string literal.
inline constexpr std::string_view kPostScriptNamePlace = "__PSNAME__";
inline constexpr std::string_view kUndoNamePlace = "__UNDO_NAME__";
inline constexpr std::string_view kDocumentsPlace = "__DOCUMENTS__"; // names, each on a line

// A script with texts in their places.
std::string filledTemplate(std::string_view script,
                           std::initializer_list<std::pair<std::string_view, std::string_view>> texts);

} // namespace kerlune
