#pragma once

#include "Model/FontRecord.h"

#include <optional>
#include <vector>

struct sqlite3;

namespace kerlune {

// All rows of the table `fonts`, in the order in which they were written. A text that is NULL reads as empty, and an
// optional one that is empty is absent; an unknown class reads as FontClass::unknown. Absent when they did not all
// come.
//
// Thread: the connection's; no other may use the connection meanwhile. The records are made on other cores while SQLite
// goes on.
std::optional<std::vector<FontRecordPointer>> readRecords(sqlite3 *connection);

} // namespace kerlune
