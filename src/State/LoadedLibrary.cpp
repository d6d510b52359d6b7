#include "State/LoadedLibrary.h"

#include "Model/FontIndexer.h"
#include "Support/ParallelTasks.h"

#include <utility>

namespace kerlune {

LoadedLibrary makeLibrary(std::vector<FontRecordPointer> records)
{
    LoadedLibrary library{.records = std::move(records)};
    for (FontFamily &family : FontIndexer::groupIntoFamilies(library.records))
        library.families.push_back(std::make_shared<const FontFamily>(std::move(family)));
    ParallelTasks tasks;
    tasks.run([&library] {
        library.recordByPostScriptName.reserve(library.records.size());
        for (const FontRecordPointer &record : library.records)
            library.recordByPostScriptName.emplace(record->postScriptName, record);
    });
    library.familyByName.reserve(library.families.size());
    for (const FontFamilyPointer &family : library.families)
        library.familyByName.emplace(family->name, family);
    library.searchIndex = SearchIndex(library.families);
    tasks.wait();
    return library;
}

} // namespace kerlune
