#include "State/Filters.h"

#include "Model/ScriptCoverage.h"
#include "Support/Localization.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace kerlune {

namespace {

using Json = nlohmann::json;

// JSON does not tell 400 from 400.0.
std::optional<std::int64_t> integer(const Json &value)
{
    if (value.is_number_unsigned() && value.get<std::uint64_t>() > std::numeric_limits<std::int64_t>::max())
        return std::nullopt;
    if (value.is_number_integer())
        return value.get<std::int64_t>();
    constexpr double kExact = 1LL << 53;
    if (value.is_number_float() && std::trunc(value.get<double>()) == value.get<double>() &&
        std::abs(value.get<double>()) <= kExact)
        return static_cast<std::int64_t>(value.get<double>());
    return std::nullopt;
}

bool take(const Json &value, std::string &text)
{
    if (!value.is_string())
        return false;
    text = value.get<std::string>();
    return true;
}

bool take(const Json &value, bool &flag)
{
    if (!value.is_boolean())
        return false;
    flag = value.get<bool>();
    return true;
}

bool take(const Json &value, std::uint64_t &bits)
{
    if (value.is_number_unsigned()) {
        bits = value.get<std::uint64_t>();
        return true;
    }
    const auto number = integer(value);
    if (!number || *number < 0)
        return false;
    bits = static_cast<std::uint64_t>(*number);
    return true;
}

bool take(const Json &value, WeightRange &range)
{
    if (!value.is_array() || value.size() != 2)
        return false;
    const auto lower = integer(value[0]);
    const auto upper = integer(value[1]);
    if (!lower || !upper || *lower > *upper || *lower < std::numeric_limits<int>::min() ||
        *upper > std::numeric_limits<int>::max())
        return false;
    range = {static_cast<int>(*lower), static_cast<int>(*upper)};
    return true;
}

bool take(const Json &value, FontClass &fontClass)
{
    const auto number = integer(value);
    const auto known = number ? fontClassFromRawValue(*number) : std::nullopt;
    fontClass = known.value_or(FontClass::unknown);
    return known.has_value();
}

template <typename Element>
bool take(const Json &value, std::set<Element> &elements)
{
    if (!value.is_array())
        return false;
    return std::all_of(value.begin(), value.end(), [&](const Json &each) {
        Element element{};
        if (!take(each, element))
            return false;
        elements.insert(std::move(element));
        return true;
    });
}

template <typename Field>
bool takeKey(const Json &object, const char *key, Field &field)
{
    const auto found = object.find(key);
    return found == object.end() || found->is_null() || take(*found, field);
}

std::string joined(const std::vector<std::string> &parts, std::string_view separator)
{
    std::string text;
    for (const std::string &part : parts) {
        if (!text.empty())
            text += separator;
        text += part;
    }
    return text;
}

std::string classLabels(const std::set<FontClass> &classes)
{
    std::vector<std::string> labels;
    std::transform(classes.begin(), classes.end(), std::back_inserter(labels),
                   [](FontClass fontClass) { return label(fontClass); });
    std::sort(labels.begin(), labels.end());
    return joined(labels, ", ");
}

std::string languageLabels(std::uint64_t bits)
{
    std::vector<std::string> labels;
    for (const ScriptCoverage::Language &language : ScriptCoverage::languages(bits))
        labels.push_back(language.label());
    return joined(labels, ", ");
}

} // namespace

Json encodeFilters(const Filters &filters)
{
    auto classes = Json::array();
    for (const FontClass fontClass : filters.classes)
        classes.push_back(rawValue(fontClass));
    return {{"search", filters.search},
            {"classes", std::move(classes)},
            {"onlyVariable", filters.onlyVariable},
            {"onlyMonospace", filters.onlyMonospace},
            {"onlyColor", filters.onlyColor},
            {"onlyItalic", filters.onlyItalic},
            {"hideItalic", filters.hideItalic},
            {"languageBits", filters.languageBits},
            {"weightRange", Json::array({filters.weightRange.lower, filters.weightRange.upper})},
            {"riskyLicenseOnly", filters.riskyLicenseOnly},
            {"requiredGlyphs", filters.requiredGlyphs},
            {"tags", filters.tags}};
}

std::optional<Filters> decodeFilters(const Json &object)
{
    if (!object.is_object())
        return std::nullopt;
    Filters filters;
    const bool isUnderstood =
        takeKey(object, "search", filters.search) && takeKey(object, "classes", filters.classes) &&
        takeKey(object, "onlyVariable", filters.onlyVariable) &&
        takeKey(object, "onlyMonospace", filters.onlyMonospace) && takeKey(object, "onlyColor", filters.onlyColor) &&
        takeKey(object, "onlyItalic", filters.onlyItalic) && takeKey(object, "hideItalic", filters.hideItalic) &&
        takeKey(object, "languageBits", filters.languageBits) && takeKey(object, "weightRange", filters.weightRange) &&
        takeKey(object, "riskyLicenseOnly", filters.riskyLicenseOnly) &&
        takeKey(object, "requiredGlyphs", filters.requiredGlyphs) && takeKey(object, "tags", filters.tags);
    return isUnderstood ? std::optional(std::move(filters)) : std::nullopt;
}

std::optional<std::string> filtersToText(const Filters &filters)
{
    try {
        return encodeFilters(filters).dump();
    } catch (const Json::type_error &) { // a text that is not UTF-8
        return std::nullopt;
    }
}

std::optional<Filters> filtersFromText(std::string_view json)
{
    const Json object = Json::parse(json, nullptr, false);
    return object.is_discarded() ? std::nullopt : decodeFilters(object);
}

std::string summary(const Filters &filters)
{
    std::vector<std::string> parts;
    const auto add = [&](bool isAsked, const char *text) {
        if (isAsked)
            parts.push_back(localized(text));
    };
    if (!filters.search.empty())
        parts.push_back(localized("recherche « %1 »", {filters.search}));
    if (!filters.classes.empty())
        parts.push_back(classLabels(filters.classes));
    if (!filters.tags.empty())
        parts.push_back(localized("tags : %1", {joined({filters.tags.begin(), filters.tags.end()}, ", ")}));
    add(filters.onlyVariable, marked("variables"));
    add(filters.onlyMonospace, marked("monospace"));
    add(filters.onlyColor, marked("couleur"));
    add(filters.onlyItalic, marked("italiques"));
    add(filters.hideItalic, marked("sans italiques"));
    if (filters.languageBits != 0)
        parts.push_back(languageLabels(filters.languageBits));
    if (filters.weightRange != WeightRange()) {
        parts.push_back(localized(
            "graisse %1–%2", {std::to_string(filters.weightRange.lower), std::to_string(filters.weightRange.upper)}));
    }
    add(filters.riskyLicenseOnly, marked("licence restrictive"));
    if (!filters.requiredGlyphs.empty())
        parts.push_back(localized("glyphes « %1 »", {filters.requiredGlyphs}));
    return parts.empty() ? localized("Aucun critère") : joined(parts, " · ");
}

} // namespace kerlune
