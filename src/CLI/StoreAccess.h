#pragma once

#include "Platform/Directories.h"
#include "Store/FontIndexStore.h"

#include <memory>
#include <string>

namespace kerlune {

// Opens the index of the user, or says on standard error why it cannot be opened and returns null.
std::unique_ptr<FontIndexStore> openStore(const Directories &directories);

// Says on standard error what failed and what can be done about it.
void reportStoreError(const FontIndexStore::StoreError &error, const Directories &directories);

// A sentence about a change of the database that was not written.
std::string whyNothingWasWritten(const Directories &directories);

} // namespace kerlune
