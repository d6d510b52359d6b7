#include "Bridge/UsedFont.h"

#include "Support/Text.h"

#include <algorithm>
#include <array>

namespace kerlune {

namespace {

std::optional<std::string> told(const std::string &field)
{
    return field.empty() ? std::nullopt : std::optional(field);
}

// What lies before the first of these marks is taken off the text.
std::string fieldTakenFrom(std::string_view &text, std::string_view marks)
{
    const std::size_t end = text.find_first_of(marks);
    std::string field = trimmed(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return field;
}

} // namespace

std::vector<UsedFont> parseUsedFonts(std::string_view answer)
{
    std::vector<UsedFont> fonts;
    while (!answer.empty()) {
        const std::size_t end = answer.find_first_of("\r\n"); // AppleScript ends lines in its own way
        std::string_view line = answer.substr(0, end);
        answer.remove_prefix(end == std::string_view::npos ? answer.size() : end + 1);
        std::array<std::string, 3> fields;
        for (std::string &field : fields)
            field = fieldTakenFrom(line, "\t");
        UsedFont font{fields[0], told(fields[1]), told(fields[2])};
        const bool isNamed = !font.postScriptName.empty() || font.family;
        if (isNamed && std::find(fonts.begin(), fonts.end(), font) == fonts.end())
            fonts.push_back(std::move(font));
    }
    return fonts;
}

} // namespace kerlune

std::size_t std::hash<kerlune::UsedFont>::operator()(const kerlune::UsedFont &font) const noexcept
{
    std::size_t result = std::hash<std::string>()(font.postScriptName);
    for (const auto &name : {font.family, font.style})
        result = result * 31 + std::hash<std::optional<std::string>>()(name);
    return result;
}
