#include "State/LoadedLibrary.h"

#include "Model/FontIndexer.h"
#include "Support/ParallelTasks.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace kerlune {

namespace {

std::vector<FontFamily> duplicateFamilies(const std::vector<FontRecordPointer> &records)
{
    std::unordered_map<std::string_view, int> uses;
    uses.reserve(records.size());
    for (const FontRecordPointer &record : records)
        ++uses[record->postScriptName];
    std::vector<FontRecordPointer> shared;
    std::copy_if(records.begin(), records.end(), std::back_inserter(shared),
                 [&](const FontRecordPointer &record) { return uses.at(record->postScriptName) > 1; });
    return FontIndexer::groupIntoFamilies(shared);
}

} // namespace

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
    if (library.recordByPostScriptName.size() < library.records.size())
        library.duplicates = duplicateFamilies(library.records);
    return library;
}

} // namespace kerlune
