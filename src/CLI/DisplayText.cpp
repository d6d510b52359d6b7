#include "CLI/DisplayText.h"

#include <unicode/utf8.h>

#include <cstdint>

namespace kerlune {

std::string displayText(std::string_view text)
{
    std::string shown;
    const auto length = static_cast<std::int32_t>(text.size());
    for (std::int32_t at = 0; at < length;) {
        const std::int32_t start = at;
        UChar32 c = 0;
        U8_NEXT(text.data(), at, length, c);
        const bool isControl = c < 0x20 || (c >= 0x7F && c < 0xA0); // a negative c stands for damaged bytes
        if (isControl)
            shown += "\uFFFD";
        else
            shown += text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(at - start));
    }
    return shown;
}

} // namespace kerlune
