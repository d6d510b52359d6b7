#include "Platform/TextEncoding.h"

#include "Support/Handle.h"

#include <unicode/ucnv.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <unordered_map>

namespace kerlune {

namespace {

constexpr const char *kUtf16 = "UTF-16BE";
constexpr const char *kMacRoman = "macos-0_2-10.2";
constexpr const char *kAscii = "US-ASCII";

const char *macintoshConverter(std::uint16_t encoding, std::uint16_t language)
{
    switch (encoding) {
    case 0: // Roman, with the variants that a language asks for
        return language == 17 ? "macos-35-10.2" : kMacRoman;
    case 1:
        return "windows-31j"; // Japanese
    case 2:
        return "windows-950"; // Traditional Chinese
    case 3:
        return "windows-949"; // Korean
    case 6:
        return "macos-6_2-10.4"; // Greek
    case 7:
        return "macos-7_3-10.2"; // Cyrillic
    case 25:
        return "windows-936"; // Simplified Chinese
    case 29:
        return "macos-29-10.2"; // Slavic
    case 35:
        return "macos-35-10.2"; // Turkish
    default:
        return kAscii;
    }
}

const char *windowsConverter(std::uint16_t encoding)
{
    switch (encoding) {
    case 0:
    case 1:
    case 10:
        return kUtf16;
    case 2:
        return "windows-31j"; // Shift-JIS
    case 3:
        return "gb18030"; // PRC
    case 4:
        return "windows-950"; // Big5
    case 5:
        return "windows-949"; // Wansung
    default:
        return kAscii;
    }
}

const char *converterName(std::uint16_t platform, std::uint16_t encoding, std::uint16_t language)
{
    switch (platform) {
    case 0:
        return kUtf16;
    case 1:
        return macintoshConverter(encoding, language);
    case 2: // ISO: 7-bit ASCII, ISO 10646, ISO 8859-1
        return encoding == 1 ? kUtf16 : encoding == 2 ? "ISO-8859-1" : kAscii;
    case 3:
        return windowsConverter(encoding);
    default:
        return kAscii;
    }
}

bool isPrintableAscii(char16_t c)
{
    return (c >= 0x20 && c <= 0x7E) || c == u'\t' || c == u'\n' || c == u'\r';
}

std::optional<std::u16string> decodeUtf16(ByteView bytes)
{
    // A stray zero at the end is the remains of a C string; any other odd length is damage.
    if (bytes.size() % 2 == 1) {
        if (bytes.back() != 0)
            return std::nullopt;
        bytes = bytes.first(bytes.size() - 1);
    }
    std::u16string text(bytes.size() / 2, u'\0');
    for (std::size_t i = 0; i < text.size(); ++i)
        text[i] = static_cast<char16_t>(*readU16(bytes, 2 * i));
    return text;
}

std::optional<std::u16string> decodeWithConverter(ByteView bytes, const char *name)
{
    UErrorCode status = U_ZERO_ERROR;
    const Handle<UConverter, ucnv_close> converter(ucnv_open(name, &status));
    ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    std::u16string text(2 * bytes.size() + 1, u'\0');
    const std::int32_t length =
        ucnv_toUChars(converter.get(), text.data(), static_cast<std::int32_t>(text.size()),
                      reinterpret_cast<const char *>(bytes.data()), static_cast<std::int32_t>(bytes.size()), &status);
    if (U_FAILURE(status))
        return std::nullopt;
    text.resize(static_cast<std::size_t>(length));
    return text;
}

// Some tools wrote ASCII as UTF-16 into a record of another encoding: a zero before every character.
void undoDoubleEncoding(std::u16string &text)
{
    if (text.empty() || text.size() % 2 == 1)
        return;
    for (std::size_t i = 0; i < text.size(); i += 2) {
        if (text[i] != 0 || !isPrintableAscii(text[i + 1]))
            return;
    }
    for (std::size_t i = 0; 2 * i < text.size(); ++i)
        text[i] = text[2 * i + 1];
    text.resize(text.size() / 2);
}

std::optional<std::string> utf8(const std::u16string &text)
{
    std::string result;
    result.reserve(text.size() + 16);
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t c = text[i];
        if (c >= 0xD800 && c <= 0xDFFF) {
            const bool isPair = c <= 0xDBFF && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF;
            if (!isPair)
                return std::nullopt;
            c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00U);
        }
        std::array<char, 4> bytes{};
        std::int32_t length = 0;
        U8_APPEND_UNSAFE(bytes.data(), length, static_cast<std::int32_t>(c));
        result.append(bytes.data(), static_cast<std::size_t>(length));
    }
    return result;
}

std::unordered_map<char32_t, std::uint8_t> makeMacRomanBytes()
{
    std::array<std::uint8_t, 256> bytes{};
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::uint8_t>(i);
    std::unordered_map<char32_t, std::uint8_t> byCharacter;
    const auto text = decodeWithConverter(bytes, kMacRoman);
    for (std::size_t i = 0; text && i < text->size() && i < bytes.size(); ++i)
        byCharacter.emplace((*text)[i], bytes[i]);
    return byCharacter;
}

} // namespace

std::optional<std::string> decodeName(ByteView bytes, std::uint16_t platform, std::uint16_t encoding,
                                      std::uint16_t language)
{
    const char *converter = converterName(platform, encoding, language);
    const bool isUtf16 = converter == kUtf16;
    const bool isAscii = std::all_of(bytes.begin(), bytes.end(), [](std::uint8_t b) { return b < 0x80 && b != 0; });
    if (!isUtf16 && isAscii) // most Macintosh names; every other encoding here holds ASCII
        return std::string(bytes.begin(), bytes.end());

    auto text = isUtf16 ? decodeUtf16(bytes) : decodeWithConverter(bytes, converter);
    if (!text)
        return std::nullopt;
    undoDoubleEncoding(*text);
    return utf8(*text);
}

std::optional<std::uint8_t> macRomanByte(char32_t character)
{
    static const std::unordered_map<char32_t, std::uint8_t> bytes = makeMacRomanBytes();
    const auto found = bytes.find(character);
    return found == bytes.end() ? std::nullopt : std::optional(found->second);
}

} // namespace kerlune
