#include "Bridge/ScriptText.h"

#include <array>
#include <utility>

namespace kerlune {

namespace {

// The length of a line end at the start of the text, 0 for none.
std::size_t lineEnd(std::string_view text)
{
    if (text.starts_with("\r\n"))
        return 2;
    return text.starts_with('\n') || text.starts_with('\r') ? 1 : 0;
}

// With quotation marks, backslashes and line ends as AppleScript and JavaScript both write them.
template <typename WriteOther>
std::string escaped(std::string_view text, WriteOther &&writeOther)
{
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        if (const std::size_t length = lineEnd(text); length > 0) {
            result += "\\n";
            text.remove_prefix(length);
        } else if (text.front() == '\\' || text.front() == '"') {
            result += {'\\', text.front()};
            text.remove_prefix(1);
        } else {
            text.remove_prefix(writeOther(text, result));
        }
    }
    return result;
}

std::string byNumber(unsigned codeUnit)
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text = "\\u";
    for (int shift = 12; shift >= 0; shift -= 4)
        text += kDigits[(codeUnit >> shift) & 0xF];
    return text;
}

} // namespace

std::string quotedForAppleScript(std::string_view text)
{
    const auto copyByte = [](std::string_view rest, std::string &result) -> std::size_t {
        result += rest.front();
        return 1;
    };
    return '"' + escaped(text, copyByte) + '"';
}

std::string escapedForJavaScript(std::string_view text)
{
    const auto write = [](std::string_view rest, std::string &result) -> std::size_t {
        constexpr std::array<std::pair<std::string_view, unsigned>, 2> kSeparators{
            {{"\u2028", 0x2028}, {"\u2029", 0x2029}}};
        for (const auto &[separator, codeUnit] : kSeparators) {
            if (rest.starts_with(separator)) {
                result += byNumber(codeUnit);
                return separator.size();
            }
        }
        const auto byte = static_cast<unsigned char>(rest.front());
        if (byte < 0x20)
            result += byNumber(byte);
        else
            result += rest.front();
        return 1;
    };
    return escaped(text, write);
}

std::string filledTemplate(std::string_view script,
                           std::initializer_list<std::pair<std::string_view, std::string_view>> texts)
{
    std::string filled;
    while (!script.empty()) {
        std::size_t taken = 0;
        for (const auto &[place, text] : texts) {
            if (script.starts_with(place)) {
                filled += escapedForJavaScript(text); // which is not searched for places itself
                taken = place.size();
            }
        }
        if (taken == 0) {
            filled += script.front();
            taken = 1;
        }
        script.remove_prefix(taken);
    }
    return filled;
}

} // namespace kerlune
