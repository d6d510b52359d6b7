#include "UI/Browser/ComparisonMeasures.h"

#include "Platform/FaceOpening.h"
#include "Platform/TextShaping.h"
#include "Support/Localization.h"
#include "UI/InterfaceText.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <exception>

namespace kerlune {

namespace {

constexpr double kMeasuringSize = 1000; // points, so that the width is in thousandths of the em

QString unknown()
{
    return QStringLiteral("–");
}

QString percent(long value)
{
    return uiText("%1 %", {QString::number(value)});
}

// With its sign; a true minus, so that the columns of numbers stand well.
QString signedPercent(double difference)
{
    const long rounded = std::lround(difference * 100);
    if (rounded == 0)
        return QStringLiteral("=");
    return (rounded > 0 ? QStringLiteral("+") : QStringLiteral("−")) + percent(std::labs(rounded));
}

} // namespace

std::optional<LineWidth> measureLine(const FontRecord &face, const std::string &text)
{
    try {
        const auto opened = openFace(face.filePath, face.postScriptName);
        if (!opened)
            return std::nullopt;
        const ShapedLine line = shape(*opened, text, {.size = kMeasuringSize});
        if (line.isTooCostly)
            return std::nullopt;
        const auto characters = std::count_if(text.begin(), text.end(), [](char byte) {
            return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80; // its first byte
        });
        return LineWidth{.ofEm = line.width / kMeasuringSize,
                         .coversTheText = 2 * line.missingClusters.size() <= static_cast<std::size_t>(characters)};
    } catch (const std::exception &) { // no memory for it
        return std::nullopt;
    }
}

QString shareOfEm(double ratio)
{
    return ratio <= 0 ? unknown() : percent(std::lround(ratio * 100));
}

QString widthInEms(double width)
{
    return width <= 0 ? unknown() : uiText("%1 em", {QString::fromStdString(decimalDigits(width))});
}

QString differenceOfShares(double ratio, double reference)
{
    // Of what is shown, so that the numbers add up.
    const double shownDifference = (std::round(ratio * 100) - std::round(reference * 100)) / 100;
    return ratio <= 0 || reference <= 0 ? unknown() : signedPercent(shownDifference);
}

QString differenceOfWidths(double width, double reference)
{
    return width <= 0 || reference <= 0 ? unknown() : signedPercent(width / reference - 1);
}

} // namespace kerlune
