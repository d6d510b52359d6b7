#pragma once

#include <nlohmann/json_fwd.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kerlune {

// One family of the Google Fonts catalogue. Its name, not the one that is shown, identifies it.
struct GoogleFontFamily {
    std::string family;
    std::optional<std::string> displayName = {};
    std::string category = {};   // such as "Sans Serif"; see categoryLabel()
    std::int64_t popularity = 0; // a rank, 1 the first
    std::int64_t trending = 0;   // likewise
    std::string dateAdded = {};  // such as "2010-11-20"
    std::vector<std::string> designers = {};
    std::vector<std::string> variants = {}; // "400", "700i", …, in the order of their weights
    bool isVariable = false;
    bool isNoto = false;

    bool operator==(const GoogleFontFamily &) const = default;

    const std::string &shownName() const; // displayName unless that is absent or empty

    // What the style sheet service is to be asked for besides the name: nothing where there is a regular style, else
    // the one nearest to it, "wght@300" or "ital,wght@1,300".
    std::optional<std::string> cssStyleSpec() const;
    // The same for all styles: "wght@400;700", "ital,wght@0,400;1,400"; nothing for a regular style alone.
    std::optional<std::string> cssAllStylesSpec() const;
};

using GoogleFamilies = std::vector<GoogleFontFamily>;

// An object with one key for each field; an absent display name has none.
nlohmann::json encodeGoogleFamily(const GoogleFontFamily &family);
// Absent when a key is missing or holds a value of another kind.
std::optional<GoogleFontFamily> decodeGoogleFamily(const nlohmann::json &object);

// For display. The menu of categories begins with allCategoriesLabel().
std::string categoryLabel(std::string_view category);
std::string allCategoriesLabel();

} // namespace kerlune
