#include "Catalogs/GoogleFontFamily.h"

#include "Support/Localization.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>
#include <set>
#include <utility>

namespace kerlune {

namespace {

using nlohmann::json;

constexpr std::uint64_t kRegular = 400;

bool isItalicVariant(std::string_view variant)
{
    return variant.ends_with('i');
}

// Absent when the text is anything but a decimal integer.
std::optional<std::int64_t> integerOf(std::string_view text)
{
    if (text.starts_with('+'))
        text.remove_prefix(1);
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(value) : std::nullopt;
}

std::optional<std::int64_t> weightOf(std::string_view variant)
{
    if (isItalicVariant(variant))
        variant.remove_suffix(1);
    return integerOf(variant);
}

std::vector<std::int64_t> weights(const std::vector<std::string> &variants, bool areItalic)
{
    std::vector<std::int64_t> found;
    for (const std::string &variant : variants) {
        const auto weight = isItalicVariant(variant) == areItalic ? weightOf(variant) : std::nullopt;
        if (weight)
            found.push_back(*weight);
    }
    return found;
}

std::uint64_t distanceToRegular(std::int64_t weight)
{
    const auto value = static_cast<std::uint64_t>(weight); // a difference of 64 bits needs no sign
    return weight > static_cast<std::int64_t>(kRegular) ? value - kRegular : kRegular - value;
}

// The first of those that are equally near.
std::int64_t nearestToRegular(const std::vector<std::int64_t> &weights)
{
    return *std::min_element(weights.begin(), weights.end(), [](std::int64_t a, std::int64_t b) {
        return distanceToRegular(a) < distanceToRegular(b);
    });
}

} // namespace

const std::string &GoogleFontFamily::shownName() const
{
    return displayName && !displayName->empty() ? *displayName : family;
}

std::optional<std::string> GoogleFontFamily::cssStyleSpec() const
{
    if (std::find(variants.begin(), variants.end(), "400") != variants.end())
        return std::nullopt;
    if (const auto upright = weights(variants, false); !upright.empty())
        return "wght@" + std::to_string(nearestToRegular(upright));
    if (const auto italic = weights(variants, true); !italic.empty())
        return "ital,wght@1," + std::to_string(nearestToRegular(italic));
    return std::nullopt;
}

std::optional<std::string> GoogleFontFamily::cssAllStylesSpec() const
{
    std::set<std::pair<bool, std::int64_t>> styles; // the service wants them sorted
    for (const std::string &variant : variants) {
        if (const auto weight = weightOf(variant))
            styles.emplace(isItalicVariant(variant), *weight);
    }
    if (styles.empty() || styles == std::set<std::pair<bool, std::int64_t>>{{false, kRegular}})
        return std::nullopt;
    const bool hasItalic = styles.rbegin()->first;
    std::string spec = hasItalic ? "ital,wght@" : "wght@";
    for (const auto &[isItalic, weight] : styles) {
        if (spec.back() != '@')
            spec += ';';
        if (hasItalic)
            spec += isItalic ? "1," : "0,";
        spec += std::to_string(weight);
    }
    return spec;
}

json encodeGoogleFamily(const GoogleFontFamily &family)
{
    json object{{"family", family.family},     {"category", family.category},     {"popularity", family.popularity},
                {"trending", family.trending}, {"dateAdded", family.dateAdded},   {"designers", family.designers},
                {"variants", family.variants}, {"isVariable", family.isVariable}, {"isNoto", family.isNoto}};
    if (family.displayName)
        object["displayName"] = *family.displayName;
    return object;
}

std::optional<GoogleFontFamily> decodeGoogleFamily(const json &object)
{
    try {
        GoogleFontFamily family;
        object.at("family").get_to(family.family);
        if (const auto name = object.find("displayName"); name != object.end() && !name->is_null())
            family.displayName = name->get<std::string>();
        object.at("category").get_to(family.category);
        object.at("popularity").get_to(family.popularity);
        object.at("trending").get_to(family.trending);
        object.at("dateAdded").get_to(family.dateAdded);
        object.at("designers").get_to(family.designers);
        object.at("variants").get_to(family.variants);
        object.at("isVariable").get_to(family.isVariable);
        object.at("isNoto").get_to(family.isNoto);
        return family;
    } catch (const json::exception &) { // the library's own way to say that something is missing
        return std::nullopt;
    }
}

std::string categoryLabel(std::string_view category)
{
    if (category == "Sans Serif")
        return localized("Sans serif");
    if (category == "Handwriting")
        return localized("Manuscrite");
    return std::string(category);
}

std::string allCategoriesLabel()
{
    return localized("Toutes les catégories");
}

} // namespace kerlune
