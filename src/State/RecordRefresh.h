#pragma once

#include "Model/FontRecord.h"

#include <optional>
#include <vector>

namespace kerlune {

class FontCatalog;

// The records of all faces on offer, duplicates included, in the catalogue's order. Those of `known` whose files are
// unchanged are taken as they are, the others are read; a face that cannot be read, or whose file is gone, is left out.
// Absent when the catalogue could not ask the system.
//
// Thread: any; blocks while it reads, on all cores.
std::optional<std::vector<FontRecordPointer>> refreshedRecords(const FontCatalog &catalog,
                                                               const std::vector<FontRecordPointer> &known);

// Whether two lists hold equal records, in whatever order.
bool sameRecords(const std::vector<FontRecordPointer> &a, const std::vector<FontRecordPointer> &b);

// Without those whose PostScript name an earlier one has.
std::vector<FontRecordPointer> firstOfEachName(const std::vector<FontRecordPointer> &records);

} // namespace kerlune
