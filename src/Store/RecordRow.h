#pragma once

#include "Model/FontRecord.h"

namespace kerlune {

class Statement;

// The insert statement of a record, one numbered parameter for each column of the table `fonts`.
inline constexpr const char *kInsertRecord =
    "INSERT OR REPLACE INTO fonts VALUES\n"
    "(?1,?2,?3,?4,?5,?6,?7,?8,?9,?10,?11,?12,?13,?14,?15,?16,?17,?18,?19,?20,?21,?22,?23,?24,?25);";

// An absent text is written as the empty string.
// Precondition: the glyph count fits into 32 signed bits.
void bindRecord(Statement &insert, const FontRecord &record);

} // namespace kerlune
