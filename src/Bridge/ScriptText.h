#pragma once

#include <string>
#include <string_view>

namespace kerlune {

// Foreign text in scripts: as a literal it stays text, whatever it holds.

// An AppleScript string, with its quotation marks. Line ends become "\n".
std::string quotedForAppleScript(std::string_view text);

// What may stand between the double quotation marks of a JavaScript string. Line ends become "\n"; the two separators
// that JavaScript also takes for line ends, and other control characters, are written by their numbers.
std::string escapedForJavaScript(std::string_view text);

// A script with the name of the font and of the undo step in their places, each within a string literal.
std::string filledTemplate(std::string_view script, std::string_view postScriptName, std::string_view undoName);

} // namespace kerlune
