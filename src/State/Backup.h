#pragma once

#include "Store/UserData.h"

#include <nlohmann/json.hpp>
#include <tl/expected.hpp>

#include <string>

namespace kerlune {

// What the user made as one readable JSON object: docs/state-files.md describes it.
//
// Thread: any.

// Every text in it is UTF-8: what the data hold of other bytes becomes U+FFFD. A family, a tag or a collection's id
// that is empty names nothing and is left out. Dates are kept to the microsecond, within the years 1970 to 9999.
nlohmann::json encodeBackup(const UserData &data);

// Errors: what is wrong, and where, for display.
tl::expected<UserData, std::string> decodeBackup(const nlohmann::json &backup);

} // namespace kerlune
