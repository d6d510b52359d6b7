#pragma once

#include "Model/FontRecord.h"

#include <QString>

#include <optional>
#include <string>

namespace kerlune {

// How wide a face sets a text.
struct LineWidth {
    double ofEm = 0;            // in ems
    bool coversTheText = false; // it has most of the characters; else the width says nothing
};

// Blocks while it reads the font; absent when it cannot be read or takes too long.
// Thread: any.
std::optional<LineWidth> measureLine(const FontRecord &face, const std::string &text);

// What the comparison says, for display. A share of the em is a whole percentage; 0 counts as unknown.
QString shareOfEm(double ratio);                            // "52 %"
QString widthInEms(double width);                           // "3,8 em"
QString differenceOfShares(double ratio, double reference); // "+3 %": so many hundredths of the em
QString differenceOfWidths(double width, double reference); // "−8 %" of the reference

} // namespace kerlune
