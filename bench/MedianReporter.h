#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>

namespace kerlune {

// Prints the runs as usual and keeps the median time of each benchmark, in its unit of time.
class MedianReporter final : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run> &runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run &run : runs) {
            if (run.aggregate_name == "median")
                m_medians[run.run_name.function_name] = run.GetAdjustedRealTime();
        }
    }

    double median(const std::string &name) { return m_medians[name]; }

private:
    std::map<std::string, double> m_medians;
};

// Registers a benchmark whose median of seven runs counts.
inline void registerBenchmark(const char *name, void (*function)(benchmark::State &))
{
    benchmark::RegisterBenchmark(name, function)
        ->UseRealTime()
        ->Unit(benchmark::kMillisecond)
        ->Repetitions(7)
        ->ReportAggregatesOnly();
}

} // namespace kerlune
