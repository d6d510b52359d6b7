#pragma once

#include <string>

namespace kerlune {

// The block of Unicode that a character lies in, as a number that means nothing else. Blocks are ranges: characters in
// order lie in blocks that do not come again.
// Thread: any.
int unicodeBlock(char32_t character);

// For display. A block of which no name in the interface's languages is known has the one that Unicode gives it.
std::string blockLabel(int block);

} // namespace kerlune
