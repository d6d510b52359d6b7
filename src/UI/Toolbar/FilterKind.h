#pragma once

#include "State/Filters.h"

#include <QString>

#include <array>

namespace kerlune {

// What the filter bar offers, from left to right. The last three have no chip until they are set.
enum class FilterKind { classes, languages, weight, variable, color, italic, tags, monospace, riskyLicense, glyphs };

inline constexpr std::array kAllFilterKinds{
    FilterKind::classes, FilterKind::languages, FilterKind::weight,    FilterKind::variable,     FilterKind::color,
    FilterKind::italic,  FilterKind::tags,      FilterKind::monospace, FilterKind::riskyLicense, FilterKind::glyphs};

QString filterName(FilterKind kind);                         // for display
QString filterText(FilterKind kind, const Filters &filters); // its name, with its value when it is set
bool isSet(FilterKind kind, const Filters &filters);         // asks for something
void unset(FilterKind kind, Filters &filters);
bool isSwitch(FilterKind kind);                   // on or off, nothing to choose
void switchOn(FilterKind kind, Filters &filters); // of a switch
bool hasOwnChip(FilterKind kind);                 // even while it is not set
QString weightName(int cssWeight);                // "Gras", for display

} // namespace kerlune
