// SPDX-License-Identifier: MIT
#pragma once

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

/// Two benchmarks of one run to set side by side, by their names with arguments, as "lines/1000".
struct Ratio
{
    const char* name;
    const char* measured;
    const char* reference;
    double goal; ///< measured items a second divided by the reference's: at least this
};

/// Prints what Google Benchmark prints, and then the ratios of the items a second of those pairs
/// that were run. The machine's mood changes the figures, not the ratios.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    explicit RatioReporter(std::vector<Ratio> ratios) : m_ratios(std::move(ratios)) {}

    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            const auto rate = run.counters.find("items_per_second");
            const bool counts = run.run_type == Run::RT_Iteration || run.aggregate_name == "median";
            if (counts && rate != run.counters.end()) {
                m_rates[nameOf(run)] = rate->second;
            }
        }
    }

    void Finalize() override
    {
        ConsoleReporter::Finalize();
        for (const Ratio& ratio : m_ratios) {
            const auto measured = m_rates.find(ratio.measured);
            const auto reference = m_rates.find(ratio.reference);
            if (measured != m_rates.end() && reference != m_rates.end()) {
                std::printf("%-60s %6.2f (goal: at least %.2f)\n", ratio.name,
                            measured->second / reference->second, ratio.goal);
            }
        }
    }

private:
    static std::string nameOf(const Run& run)
    {
        const std::string& arguments = run.run_name.args;
        return run.run_name.function_name + (arguments.empty() ? "" : "/" + arguments);
    }

    std::vector<Ratio> m_ratios;
    std::map<std::string, double>
        m_rates; ///< of the last run of each, so the median where repeated
};

/// What main() does in every benchmark with ratios.
inline int runBenchmarks(int argc, char* argv[], std::vector<Ratio> ratios)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    RatioReporter reporter(std::move(ratios));
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
