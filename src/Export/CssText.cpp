#include "Export/CssText.h"

#include "Support/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace kerlune {

namespace {

// With a dot in every language, and no more digits than it takes.
std::string cssNumber(double number)
{
    const double rounded = std::round(number * 1000) / 1000;
    std::array<char, 64> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), rounded == 0 ? 0 : rounded, std::chars_format::fixed);
    return {text.data(), end.ptr};
}

std::string cssRange(const CssFace::Range &range, const char *unit)
{
    const std::string first = cssNumber(range.first) + unit;
    return range.first == range.last ? first : first + " " + cssNumber(range.last) + unit;
}

std::string declaration(const char *property, const std::string &value)
{
    return std::string(property) + ": " + value + ";\n";
}

// A tag may hold any four characters between space and tilde.
bool isTag(Tag tag)
{
    for (const unsigned shift : {24U, 16U, 8U, 0U}) {
        const unsigned byte = (tag >> shift) & 0xFF;
        if (byte < 0x20 || byte > 0x7E)
            return false;
    }
    return true;
}

bool leans(const CssFace &face)
{
    return face.slant.first != 0 || face.slant.last != 0;
}

// The value of a range that is nearest to what browsers take without being told.
CssFace::Range nearest(const CssFace::Range &range, double standard)
{
    const double value = std::clamp(standard, range.first, range.last);
    return {value, value};
}

double stretchOfRecord(double width)
{
    // OpenType OS/2, usWidthClass: % of normal
    static constexpr std::array<double, 9> kPercent{50, 62.5, 75, 87.5, 100, 112.5, 125, 150, 200};
    const double widthClass = std::round(4 + std::clamp(std::isfinite(width) ? width : 0, -1.0, 1.0) * 4);
    return kPercent.at(static_cast<std::size_t>(widthClass));
}

std::string urlPath(std::string_view fileName)
{
    static constexpr std::string_view kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~";
    static constexpr std::string_view kHex = "0123456789ABCDEF";
    std::string path;
    for (const char c : fileName) {
        if (kPlain.find(c) != std::string_view::npos) {
            path += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            path += {'%', kHex[byte >> 4], kHex[byte & 15]};
        }
    }
    return path;
}

std::string format(const CssFace &face)
{
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 6> kFormats{{{".woff2", "woff2"},
                                                                                            {".woff", "woff"},
                                                                                            {".otf", "opentype"},
                                                                                            {".ttf", "truetype"},
                                                                                            {".ttc", "collection"},
                                                                                            {".otc", "collection"}}};
    const std::string name = lowercased(face.fileName);
    const auto *const found =
        std::find_if(kFormats.begin(), kFormats.end(), [&](const auto &entry) { return name.ends_with(entry.first); });
    return found == kFormats.end() ? std::string() : " format(\"" + std::string(found->second) + "\")";
}

} // namespace

std::string cssString(std::string_view text)
{
    static constexpr std::string_view kHex = "0123456789abcdef";
    std::string quoted = "\"";
    for (const char c : validUtf8(text)) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\0') {
            quoted += "\uFFFD";
        } else if (c == '"' || c == '\\') {
            quoted += {'\\', c};
        } else if (byte < 0x20 || byte == 0x7F) { // the space ends the number, and is no part of the text
            quoted += '\\';
            if (byte >= 0x10)
                quoted += kHex[byte >> 4];
            quoted += {kHex[byte & 15], ' '};
        } else {
            quoted += c;
        }
    }
    return quoted + '"';
}

CssFace cssFace(const FontRecord &record, const FaceAxes &space)
{
    const double weight = record.cssWeight();
    const double stretch = stretchOfRecord(record.width);
    const double degrees = record.isItalic ? 0 : std::round(record.slant * 30); // FontRecord: 1 is 30 degrees
    CssFace face{.family = record.family,
                 .fileName = record.filePath.substr(record.filePath.rfind('/') + 1),
                 .isItalic = record.isItalic,
                 .slant = {degrees, degrees},
                 .weight = {weight, weight},
                 .stretch = {stretch, stretch},
                 .ownWeight = weight,
                 .ownStretch = stretch};
    if (const VariationAxis *axis = space.find(tag("wght")))
        face.weight = {std::clamp(axis->minimum, 1.0, 1000.0), std::clamp(axis->maximum, 1.0, 1000.0)};
    if (const VariationAxis *axis = space.find(tag("wdth")))
        face.stretch = {std::max(axis->minimum, 0.0), std::max(axis->maximum, 0.0)};
    if (const VariationAxis *axis = space.find(tag("slnt")); axis != nullptr && !face.isItalic)
        face.slant = {std::clamp(-axis->maximum, -90.0, 90.0), std::clamp(-axis->minimum, -90.0, 90.0)};
    return face;
}

std::string cssDeclarations(const CssFace &face, const std::vector<FeatureValue> &features,
                            const std::vector<AxisValue> &coordinates)
{
    const auto chosen = [&](const char(&axis)[5], const CssFace::Range &range, double standard) {
        const auto found = std::find_if(coordinates.begin(), coordinates.end(),
                                        [&](const AxisValue &value) { return value.axis == tag(axis); });
        return nearest(range, found == coordinates.end() ? standard : found->value);
    };
    std::string text = declaration("font-family", cssString(face.family));
    if (face.isItalic)
        text += declaration("font-style", "italic");
    else if (const auto slant = nearest(face.slant, 0); slant.first != 0)
        text += declaration("font-style", "oblique " + cssRange(slant, "deg"));
    else
        text += declaration("font-style", "normal");
    text += declaration("font-weight", cssRange(chosen("wght", face.weight, face.ownWeight), ""));
    text += declaration("font-stretch", cssRange(chosen("wdth", face.stretch, face.ownStretch), "%"));
    return text + cssVariationSettings(coordinates) + cssFeatureSettings(features);
}

std::string cssFontFaceRule(const CssFace &face)
{
    const auto line = [](const char *property, const std::string &value) {
        return "  " + declaration(property, value);
    };
    std::string style = "normal";
    if (face.isItalic)
        style = "italic";
    else if (leans(face))
        style = "oblique " + cssRange(face.slant, "deg");
    return "@font-face {\n" + line("font-family", cssString(face.family)) +
           line("src", "url(\"" + urlPath(face.fileName) + "\")" + format(face)) + line("font-style", style) +
           line("font-weight", cssRange(face.weight, "")) + line("font-stretch", cssRange(face.stretch, "%")) + "}\n";
}

std::string cssVariationSettings(const std::vector<AxisValue> &coordinates)
{
    std::string list;
    for (const AxisValue &coordinate : coordinates) {
        if (isTag(coordinate.axis) && std::isfinite(coordinate.value))
            list +=
                (list.empty() ? "" : ", ") + cssString(tagText(coordinate.axis)) + " " + cssNumber(coordinate.value);
    }
    return list.empty() ? list : declaration("font-variation-settings", list);
}

std::string cssFeatureSettings(const std::vector<FeatureValue> &features)
{
    std::string list;
    for (const FeatureValue &feature : features) {
        if (isTag(feature.feature))
            list +=
                (list.empty() ? "" : ", ") + cssString(tagText(feature.feature)) + " " + std::to_string(feature.value);
    }
    return list.empty() ? list : declaration("font-feature-settings", list);
}

} // namespace kerlune
