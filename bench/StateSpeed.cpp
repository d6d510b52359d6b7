// What a large library costs: making it of its records, and a keystroke in the search field. Prints the medians and the
// goals.

#include "MadeRecords.h"
#include "MedianReporter.h"
#include "State/LoadedLibrary.h"
#include "Support/Text.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstdio>

namespace {

using namespace kerlune;

// A word that many families have, one that few have, one letter, one with accents, two without a match that are made of
// frequent letters.
constexpr std::array kNeedles{"bold", "kestrel gothic", "e", "Élysée", "erantiles", "on the other side"};

void makeLargeLibrary(benchmark::State &state)
{
    static const auto records = MadeRecords::make(20'000, 5);
    for (auto _ : state) {
        auto copy = records;
        auto library = makeLibrary(std::move(copy));
        benchmark::DoNotOptimize(library.families.data());
        state.PauseTiming(); // a program keeps what it loaded, and begins with fresh memory
        library = {};
        malloc_trim(0);
        state.ResumeTiming();
    }
}

const LoadedLibrary &searchedLibrary()
{
    static const LoadedLibrary library = makeLibrary(MadeRecords::make(10'000, 5));
    return library;
}

// What a keystroke takes until the families are there that it finds.
void keystroke(benchmark::State &state, const char *typed)
{
    const LoadedLibrary &library = searchedLibrary();
    std::size_t found = 0;
    for (auto _ : state) {
        const std::vector<std::size_t> positions = library.searchIndex.positions(folded(typed));
        std::vector<FontFamilyPointer> hits;
        hits.reserve(positions.size());
        for (const std::size_t position : positions)
            hits.push_back(library.families[position]);
        found = hits.size();
        benchmark::DoNotOptimize(hits.data());
    }
    state.counters["families"] = static_cast<double>(found);
}

} // namespace

int main(int argc, char **argv)
{
    registerBenchmark("makeLibrary", makeLargeLibrary);
    for (const char *needle : kNeedles) {
        benchmark::RegisterBenchmark((std::string("keystroke: ") + needle).c_str(), keystroke, needle)
            ->UseRealTime()
            ->Unit(benchmark::kMillisecond)
            ->Repetitions(7)
            ->ReportAggregatesOnly();
    }
    benchmark::Initialize(&argc, argv);
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::printf("100,000 faces made into 20,000 families and their search index: %.0f ms\n",
                reporter.median("makeLibrary"));
    for (const char *needle : kNeedles)
        std::printf("keystroke “%s”: %.3f ms; goal: at most 1 ms\n", needle,
                    reporter.median(std::string("keystroke: ") + needle));
    return 0;
}
