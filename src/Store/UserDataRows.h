#pragma once

#include "Store/UserData.h"

#include <optional>

struct sqlite3;

namespace kerlune {

// The rows of the tables that hold what the user made.
//
// Thread: the connection's. The caller puts a transaction around each.

// Rows without a family, id or tag are passed over, and so are members of a collection that is not there. A name that
// is NULL reads as empty, a date as 0. Absent when a table cannot be read to its end.
std::optional<UserData> readUserData(sqlite3 *connection);

// Adds the data to what is there, see FontIndexStore::restore(). False at the first row that cannot be written;
// the connection then tells why.
bool mergeUserData(sqlite3 *connection, const UserData &data);

} // namespace kerlune
