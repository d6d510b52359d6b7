#pragma once

#include "Library/WatchedFolder.h"
#include "State/FilterPipeline.h"
#include "State/LoadedLibrary.h"
#include "State/SidebarSelection.h"
#include "State/SmartCollection.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <unordered_set>
#include <vector>

namespace kerlune {

// What the user made of the library, as the visible list looks at it.
struct LibraryContext {
    const LoadedLibrary &library;
    const std::set<std::string> &favorites;
    const std::vector<std::string> &recents;                               // most recent first
    const std::map<std::string, std::set<std::string>> &collectionMembers; // by collection id
    const TagsByFamily &tags;
    const std::vector<SmartCollection> &smartCollections;
    const std::vector<WatchedFolder> &folders;
    GlyphCoverage &glyphs;
};

// The families that the browser shows: those that the search finds, then those that the sidebar selects, then those
// that the other filters let through. In library order, but for the recently used ones. An unknown id selects nothing.
//
// Thread: any.
std::vector<FontFamilyPointer> visibleFamilies(const Filters &filters, const SidebarSelection &selection,
                                               const LibraryContext &context);

// The numbers of families beside the entries of the sidebar.
struct LibraryCounts {
    std::map<FontClass, std::int64_t> byClass; // of the representative face
    std::int64_t variable = 0;                 // with a variable face
    std::int64_t color = 0;                    // with a colour face

    bool operator==(const LibraryCounts &) const = default;
};

LibraryCounts countFamilies(const std::vector<FontFamilyPointer> &families);

// How many families cover each language, by its id; those that none covers are absent.
std::map<std::string, std::int64_t> countLanguages(const std::vector<FontFamilyPointer> &families);

// How many families have a face below the folder.
std::int64_t countInFolder(const std::vector<FontFamilyPointer> &families, const std::string &folder);

} // namespace kerlune
