#include "Model/SFNTReader.h"

#include "Platform/FontFace.h"

namespace kerlune::SFNTReader {

namespace {

constexpr std::size_t kShortestTable = 10;
constexpr std::size_t kPanoseEnd = 36;

std::uint16_t inRange(std::optional<std::uint16_t> value, std::uint16_t largest, std::uint16_t otherwise)
{
    return value && *value >= 1 && *value <= largest ? *value : otherwise;
}

} // namespace

OS2Info readOS2(const FontFace &face)
{
    return readOS2(face.tables().read(tag("OS/2"), kPanoseEnd));
}

OS2Info readOS2(ByteView table)
{
    OS2Info info;
    if (table.size() < kShortestTable)
        return info;
    info.weightClass = inRange(readU16(table, 4), 1000, info.weightClass);
    info.widthClass = inRange(readU16(table, 6), 9, info.widthClass);
    info.fsType = readU16(table, 8).value_or(0);
    info.panoseMonospaced = table.size() >= kPanoseEnd && table[35] == 9;
    return info;
}

} // namespace kerlune::SFNTReader
