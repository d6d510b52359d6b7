#include "Store/RecordRow.h"

#include "Store/Statement.h"

#include <bit>
#include <cstdlib>
#include <limits>

namespace kerlune {

namespace {

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

} // namespace kerlune
