#pragma once

#include "State/Filters.h"
#include "State/SidebarSelection.h"

#include <cstdint>

namespace kerlune {

// What the visible list depends on: where nothing of it has changed, the list has not either.
struct FilterSignature {
    Filters filters;
    SidebarSelection selection;
    std::int64_t familyCount = 0;
    std::int64_t favoritesCount = 0;
    std::int64_t recentsCount = 0;
    std::int64_t collectionsRevision = 0;
    std::int64_t tagsRevision = 0;
    std::int64_t smartRevision = 0;
    std::int64_t folderRevision = 0;

    bool operator==(const FilterSignature &) const = default;
};

} // namespace kerlune
