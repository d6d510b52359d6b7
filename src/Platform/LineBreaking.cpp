#include "Platform/LineBreaking.h"

#include "Support/Handle.h"

#include <unicode/ubrk.h>
#include <unicode/uchar.h>
#include <unicode/utext.h>
#include <unicode/utf8.h>

namespace kerlune {

std::vector<LineSegment> lineSegments(std::string_view text)
{
    if (text.empty())
        return {};
    UErrorCode error = U_ZERO_ERROR;
    const Handle<UText, utext_close> utf8(
        utext_openUTF8(nullptr, text.data(), static_cast<std::int64_t>(text.size()), &error));
    const Handle<UBreakIterator, ubrk_close> breaks(ubrk_open(UBRK_LINE, "", nullptr, 0, &error));
    ubrk_setUText(breaks.get(), utf8.get(), &error);
    if (U_FAILURE(error))
        return {{text, true}};

    std::vector<LineSegment> segments;
    std::size_t start = 0;
    for (auto end = ubrk_next(breaks.get()); end != UBRK_DONE; end = ubrk_next(breaks.get())) {
        const auto length = static_cast<std::size_t>(end) - start;
        const auto status = ubrk_getRuleStatus(breaks.get());
        segments.push_back({text.substr(start, length), status >= UBRK_LINE_HARD && status < UBRK_LINE_HARD_LIMIT});
        start = static_cast<std::size_t>(end);
    }
    return segments;
}

bool isRightToLeft(std::string_view paragraph)
{
    std::size_t at = 0;
    while (at < paragraph.size()) {
        UChar32 character = 0;
        U8_NEXT_OR_FFFD(paragraph, at, paragraph.size(), character);
        switch (u_charDirection(character)) {
        case U_LEFT_TO_RIGHT:
            return false;
        case U_RIGHT_TO_LEFT:
        case U_RIGHT_TO_LEFT_ARABIC:
            return true;
        default:
            break;
        }
    }
    return false;
}

} // namespace kerlune
