#pragma once

#include "State/SearchIndex.h"

#include <string_view>
#include <unordered_map>
#include <vector>

namespace kerlune {

// The index as the program works with it: the records and what is made of them. It is made as a whole, is held as
// std::shared_ptr<const LoadedLibrary>, and never changes.
//
// Thread: any.
struct LoadedLibrary {
    std::vector<FontRecordPointer> records = {};
    std::vector<FontFamilyPointer> families = {}; // in library order: by name, as a file browser sorts them
    // The keys look at the names in the families and records.
    std::unordered_map<std::string_view, FontFamilyPointer> familyByName = {};
    std::unordered_map<std::string_view, FontRecordPointer> recordByPostScriptName = {};
    SearchIndex searchIndex = {};
    std::vector<FontFamily> duplicates = {}; // of the faces whose PostScript name another face has too
};

// Blocks, on all cores.
LoadedLibrary makeLibrary(std::vector<FontRecordPointer> records);

} // namespace kerlune
