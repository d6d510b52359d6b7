#pragma once

#include <string_view>
#include <vector>

namespace kerlune {

// A piece of text that no line may be broken in, with the white space after it.
struct LineSegment {
    std::string_view text;
    bool endsParagraph = false; // a line ends here, whether there is room or not
};

// The pieces of a text of UTF-8, in its order (UAX 14, with dictionaries for scripts that part no words).
//
// Thread: any.
std::vector<LineSegment> lineSegments(std::string_view text);

// Whether the first strong character of a paragraph runs from right to left.
bool isRightToLeft(std::string_view paragraph);

} // namespace kerlune
