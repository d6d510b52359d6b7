#pragma once

#include "Model/FontClass.h"

#include <nlohmann/json_fwd.hpp>

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace kerlune {

// A closed range of CSS weights.
struct WeightRange {
    int lower = 100;
    int upper = 900; // not below `lower`

    bool contains(int cssWeight) const { return cssWeight >= lower && cssWeight <= upper; }
    bool operator==(const WeightRange &) const = default;
};

// What the browser narrows the library by. All criteria must hold; one at its default asks for nothing.
struct Filters {
    std::string search = {};          // see SearchIndex
    std::set<FontClass> classes = {}; // of the representative face, any of them
    bool onlyVariable = false;        // a face is variable
    bool onlyMonospace = false;       // the representative face is
    bool onlyColor = false;           // a face is
    bool onlyItalic = false;          // keeps the italic faces
    bool hideItalic = false;          // keeps the upright faces
    std::uint64_t languageBits = 0;   // see ScriptCoverage; the faces of the family cover all of them together
    WeightRange weightRange = {};     // keeps the faces within
    bool riskyLicenseOnly = false;    // a face forbids embedding
    std::string requiredGlyphs = {};  // characters that the representative face has, spaces included
    std::set<std::string> tags = {};  // the family carries all of them

    bool isActive() const { return *this != Filters(); }
    bool operator==(const Filters &) const = default;
};

// An object with one key for each field.
nlohmann::json encodeFilters(const Filters &filters);
// A missing key takes its default. Absent when it is no object, or a value is of another kind or out of range.
std::optional<Filters> decodeFilters(const nlohmann::json &object);

// The same as JSON text; absent when a text in the filters is not valid UTF-8.
std::optional<std::string> filtersToText(const Filters &filters);
std::optional<Filters> filtersFromText(std::string_view json);

// One line that says what the filters ask for, for display.
std::string summary(const Filters &filters);

} // namespace kerlune
