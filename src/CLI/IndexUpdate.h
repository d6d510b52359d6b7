#pragma once

#include "CLI/Commands.h"
#include "Platform/FontCatalog.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace kerlune {

enum class EmptyIndex {
    Refuse, // a machine that has lost its fonts keeps its index
    Accept,
};

struct IndexSummary {
    std::int64_t faces = 0; // in the new index; 0 when it is not saved
    std::int64_t families = 0;
    bool isSaved = false;
    std::vector<SkippedFont> skipped = {};
};

// Reads every font on offer and replaces the index, with a progress bar. Why it is not saved is told on standard error.
// Absent when the database cannot be opened or written.
std::optional<IndexSummary> updateIndex(const CommandContext &context, EmptyIndex whenEmpty);

} // namespace kerlune
