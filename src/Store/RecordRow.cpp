#include "Store/RecordRow.h"

#include "Store/Statement.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace kerlune {

namespace {

std::optional<std::string> optionalText(const Statement &select, int column)
{
    std::string text = select.text(column);
    return text.empty() ? std::nullopt : std::optional(std::move(text));
}

// A row that another program wrote may hold anything: what no record can hold is brought into range.
template <typename Integer>
Integer clamped(std::int64_t value)
{
    return static_cast<Integer>(
        std::clamp<std::int64_t>(value, std::numeric_limits<Integer>::min(), std::numeric_limits<Integer>::max()));
}

double finite(double value)
{
    return std::isfinite(value) ? value : 0;
}

std::int64_t asInteger(bool value)
{
    return value ? 1 : 0;
}

} // namespace

void bindRecord(Statement &insert, const FontRecord &record)
{
    if (record.glyphCount < std::numeric_limits<std::int32_t>::min() ||
        record.glyphCount > std::numeric_limits<std::int32_t>::max())
        std::abort();
    insert.bind(1, record.postScriptName);
    insert.bind(2, record.family);
    insert.bind(3, record.style);
    insert.bind(4, record.filePath);
    insert.bind(5, record.mtime);
    insert.bind(6, std::bit_cast<std::int64_t>(record.fileSize));
    insert.bind(7, record.weight);
    insert.bind(8, record.width);
    insert.bind(9, record.slant);
    insert.bind(10, std::int64_t{record.symbolicTraits});
    insert.bind(11, asInteger(record.isVariable));
    insert.bind(12, asInteger(record.isMonospace));
    insert.bind(13, asInteger(record.isColor));
    insert.bind(14, asInteger(record.isItalic));
    insert.bind(15, record.xHeightRatio);
    insert.bind(16, record.capHeightRatio);
    insert.bind(17, record.glyphCount);
    insert.bind(18, std::int64_t{rawValue(record.classification)});
    insert.bind(19, std::bit_cast<std::int64_t>(record.scriptMask)); // the pattern: bit 63 is the sign
    insert.bind(20, record.version.value_or(""));
    insert.bind(21, record.foundry.value_or(""));
    insert.bind(22, record.designer.value_or(""));
    insert.bind(23, record.licenseURL.value_or(""));
    insert.bind(24, record.copyrightNotice.value_or(""));
    insert.bind(25, std::int64_t{record.fsType});
}

FontRecord readRecord(const Statement &select)
{
    FontRecord record;
    record.postScriptName = select.text(0);
    record.family = select.text(1);
    record.style = select.text(2);
    record.filePath = select.text(3);
    record.mtime = finite(select.real(4));
    record.fileSize = std::bit_cast<std::uint64_t>(select.integer(5));
    record.weight = finite(select.real(6));
    record.width = finite(select.real(7));
    record.slant = finite(select.real(8));
    record.symbolicTraits = clamped<std::uint32_t>(select.integer(9));
    record.isVariable = select.integer(10) != 0;
    record.isMonospace = select.integer(11) != 0;
    record.isColor = select.integer(12) != 0;
    record.isItalic = select.integer(13) != 0;
    record.xHeightRatio = finite(select.real(14));
    record.capHeightRatio = finite(select.real(15));
    record.glyphCount = clamped<std::int32_t>(select.integer(16));
    record.classification = fontClassFromRawValue(select.integer(17)).value_or(FontClass::unknown);
    record.scriptMask = std::bit_cast<std::uint64_t>(select.integer(18));
    record.version = optionalText(select, 19);
    record.foundry = optionalText(select, 20);
    record.designer = optionalText(select, 21);
    record.licenseURL = optionalText(select, 22);
    record.copyrightNotice = optionalText(select, 23);
    record.fsType = clamped<std::uint16_t>(select.integer(24));
    return record;
}

} // namespace kerlune
