#include "Model/FontTraits.h"

#include "Platform/FontFace.h"

#include <algorithm>
#include <array>
#include <optional>

namespace kerlune {

namespace {

std::optional<double> coordinate(const FontFace &face, Tag axis)
{
    const auto &all = face.coordinates();
    const auto found =
        std::find_if(all.begin(), all.end(), [axis](const AxisValue &value) { return value.axis == axis; });
    return found == all.end() ? std::nullopt : std::optional(found->value);
}

double weightTrait(double weightClass)
{
    const double trait = weightClass <= 400 ? (weightClass - 400) / 300 : (weightClass - 400) / 500;
    return std::clamp(trait, -1.0, 1.0);
}

// OpenType OS/2, usWidthClass: the percentage of normal that each class stands for. A percentage between two of them
// lies between their classes.
double widthClassOfPercentage(double percentage)
{
    static constexpr std::array kPercentages{50.0, 62.5, 75.0, 87.5, 100.0, 112.5, 125.0, 150.0, 200.0};
    if (percentage <= kPercentages.front())
        return 1;
    for (std::size_t i = 1; i < kPercentages.size(); ++i) {
        if (percentage <= kPercentages[i]) {
            const double step = kPercentages[i] - kPercentages[i - 1];
            return static_cast<double>(i) + (percentage - kPercentages[i - 1]) / step;
        }
    }
    return static_cast<double>(kPercentages.size());
}

// OpenType 'post' italicAngle (16.16, at 4) and the axis slnt count positive degrees to the left.
double slantAngle(const FontFace &face, ByteView post)
{
    if (const auto slant = coordinate(face, tag("slnt")))
        return -*slant;
    return -static_cast<double>(static_cast<std::int32_t>(readU32(post, 4).value_or(0))) / 65536;
}

bool hasColorGlyphs(const FaceTables &tables)
{
    return tables.has(tag("COLR")) || tables.has(tag("CBDT")) || tables.has(tag("sbix")) || tables.has(tag("SVG "));
}

// OpenType OS/2 fsSelection (at 62): italic bit 0, bold bit 5. head.macStyle: bold bit 0, italic bit 1.
std::uint32_t styleBits(const FontFace &face, ByteView os2)
{
    const auto selection = readU16(os2, 62);
    const bool isItalic = selection ? (*selection & 0x01) != 0 : (face.macStyle() & 0x02) != 0;
    const bool isBold = selection ? (*selection & 0x20) != 0 : (face.macStyle() & 0x01) != 0;
    const bool isItalicInstance = coordinate(face, tag("ital")).value_or(0) >= 0.5;
    return (isItalic || isItalicInstance ? FontTraits::kItalic : 0) | (isBold ? FontTraits::kBold : 0);
}

} // namespace

double slantAngle(const FontFace &face)
{
    return slantAngle(face, face.tables().read(tag("post"), 16));
}

FontTraits readTraits(const FontFace &face, const SFNTReader::OS2Info &os2Info)
{
    const auto os2 = face.tables().read(tag("OS/2"), 64);
    const auto post = face.tables().read(tag("post"), 16);

    FontTraits traits;
    traits.weight = weightTrait(coordinate(face, tag("wght")).value_or(os2Info.weightClass));
    const auto percentage = coordinate(face, tag("wdth"));
    const double widthClass = percentage ? widthClassOfPercentage(*percentage) : os2Info.widthClass;
    traits.width = (widthClass - 5) / 4;
    traits.slant = std::clamp(slantAngle(face, post) / 30, -1.0, 1.0);

    traits.symbolic = styleBits(face, os2);
    if (widthClass > 5)
        traits.symbolic |= FontTraits::kExpanded;
    if (widthClass < 5)
        traits.symbolic |= FontTraits::kCondensed;
    if (readU32(post, 12).value_or(0) != 0) // OpenType 'post', isFixedPitch
        traits.symbolic |= FontTraits::kMonospace;
    if (hasColorGlyphs(face.tables()))
        traits.symbolic |= FontTraits::kColor;
    // OpenType OS/2, sFamilyClass at 30: the high byte is the class.
    const std::uint32_t familyClass = readU16(os2, 30).value_or(0) >> 8;
    traits.symbolic |= (familyClass & 0xF) << FontTraits::kFamilyClassShift;
    return traits;
}

} // namespace kerlune
