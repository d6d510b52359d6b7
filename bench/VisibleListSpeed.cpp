// What the visible list costs in a library of 100,000 faces in 20,000 families: unfiltered, by search, by each filter
// and by each selection of the sidebar. Prints milliseconds beside those of copying the list of families, which is the
// least that any of them does.

#include "MadeRecords.h"
#include "MedianReporter.h"
#include "Model/ScriptCoverage.h"
#include "State/GlyphCoverage.h"
#include "State/VisibleFamilies.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

using namespace kerlune;

// The library and what a diligent user made of it: every tenth family tagged, as many favourites and members.
struct UsedLibrary {
    UsedLibrary()
        : library(makeLibrary(MadeRecords::make(20'000, 5)))
    {
        for (std::size_t i = 0; i < library.families.size(); i += 10) {
            const std::string &name = library.families[i]->name;
            tags[name] = {"projet", "titre"};
            favorites.insert(name);
            members["collection"].insert(name);
            if (recents.size() < 40)
                recents.push_back(name);
        }
        smart = {{"smart", "Titres", {.search = "gothic", .onlyItalic = true}}};
        folders = {{"folder", "/usr/share/fonts"}};
    }

    LibraryContext context() { return {library, favorites, recents, members, tags, smart, folders, glyphs}; }

    LoadedLibrary library;
    std::set<std::string> favorites;
    std::vector<std::string> recents;
    std::map<std::string, std::set<std::string>> members;
    TagsByFamily tags;
    std::vector<SmartCollection> smart;
    std::vector<WatchedFolder> folders;
    GlyphCoverage glyphs;
};

UsedLibrary &used()
{
    static UsedLibrary library;
    return library;
}

struct Case {
    const char *name;
    Filters filters = {};
    const char *selection = "all";
};

std::vector<Case> cases()
{
    return {{"unfiltered"},
            {"search", {.search = "gothic"}},
            {"class", {.classes = {FontClass::serif}}},
            {"variable", {.onlyVariable = true}},
            {"monospace", {.onlyMonospace = true}},
            {"color", {.onlyColor = true}},
            {"italic", {.onlyItalic = true}},
            {"no italic", {.hideItalic = true}},
            {"language", {.languageBits = 1ULL << 20}},
            {"weight", {.weightRange = {500, 700}}},
            {"risky licence", {.riskyLicenseOnly = true}},
            {"tag", {.tags = {"titre"}}},
            {"favorites", {}, "favorites"},
            {"recents", {}, "recents"},
            {"collection", {}, "collection:collection"},
            {"smart collection", {}, "smart:smart"},
            {"folder", {}, "folder:folder"},
            {"class selected", {}, "class:serif"},
            {"duplicates", {}, "duplicates"}};
}

void copyFamilies(benchmark::State &state)
{
    for (auto _ : state) {
        auto copy = used().library.families;
        benchmark::DoNotOptimize(copy.data());
    }
}

void visibleList(benchmark::State &state, const Case &wanted)
{
    const SidebarSelection selection = *selectionFromText(wanted.selection);
    const LibraryContext context = used().context();
    std::size_t families = 0;
    for (auto _ : state) {
        const auto visible = visibleFamilies(wanted.filters, selection, context);
        families = visible.size();
        benchmark::DoNotOptimize(visible.data());
    }
    state.counters["families"] = static_cast<double>(families);
}

} // namespace

int main(int argc, char **argv)
{
    registerBenchmark("copy", copyFamilies);
    for (const Case &wanted : cases()) {
        benchmark::RegisterBenchmark(wanted.name, visibleList, wanted)
            ->UseRealTime()
            ->Unit(benchmark::kMillisecond)
            ->Repetitions(7)
            ->ReportAggregatesOnly();
    }
    benchmark::Initialize(&argc, argv);
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::printf("copying the list of 20,000 families: %.2f ms\n", reporter.median("copy"));
    for (const Case &wanted : cases())
        std::printf("%-16s %6.2f ms\n", wanted.name, reporter.median(wanted.name));
    return 0;
}
