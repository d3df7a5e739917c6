// The run of a suite on Google Benchmark, and its table.
#include "Suite.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>

namespace
{

const std::vector<std::string> commonOptions = {
    "--benchmark_enable_random_interleaving=true",
    "--benchmark_report_aggregates_only=true",
    "--benchmark_color=false",
};
constexpr const char* statistic = "low";
constexpr std::size_t lowShare = 5; // one in so many results is lower

using Results = std::map<std::string, double>;

// Reports to standard error and keeps the results.
class Reporter : public benchmark::ConsoleReporter
{
public:
    Reporter(Results& cpuTimes, Results& elapsedTimes)
        : ConsoleReporter(OO_None), m_cpuTimes(cpuTimes), m_elapsedTimes(elapsedTimes)
    {
        SetOutputStream(&std::cerr);
    }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        std::vector<Run> shown;
        for (const Run& run : runs) {
            if (run.aggregate_name != statistic)
                continue;
            m_cpuTimes[run.run_name.function_name] = run.GetAdjustedCPUTime();
            m_elapsedTimes[run.run_name.function_name] = run.GetAdjustedRealTime();
            shown.push_back(run);
        }
        ConsoleReporter::ReportRuns(shown);
    }

private:
    Results& m_cpuTimes;
    Results& m_elapsedTimes;
};

} // namespace

namespace bench
{

Suite::Suite(int argc, char** argv, std::vector<std::string> options)
{
    options.insert(options.begin(), commonOptions.begin(), commonOptions.end());
    std::vector<char*> arguments(argv, argv + 1);
    for (std::string& option : options)
        arguments.push_back(option.data());
    arguments.insert(arguments.end(), argv + 1, argv + argc); // the last value of an option counts
    int count = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        std::exit(EXIT_FAILURE);
}

void Suite::Add(const std::string& name, double rows, std::function<void(benchmark::State&)> body)
{
    m_rows[name] = rows;
    // Elapsed time decides how often a body is repeated: one that waits takes hardly any CPU time.
    benchmark::RegisterBenchmark(name.c_str(), std::move(body))
        ->UseRealTime()
        ->Unit(benchmark::kNanosecond)
        ->ComputeStatistics(statistic, LowResult);
}

void Suite::Run()
{
    Reporter reporter(m_cpuTimes, m_elapsedTimes);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::ClearRegisteredBenchmarks();
}

void Suite::Record(const std::string& name, double result)
{
    m_rows[name] = 1;
    m_cpuTimes[name] = m_elapsedTimes[name] = result;
}

void Suite::PrintTable(std::string_view title, std::string_view unit) const
{
    std::printf("| work | peer | ours | peer's | ratio | goal | met |\n|---|---|---|---|---|---|---|\n");
    std::printf("| **%.*s** (%.*s) | | | | | | |\n", static_cast<int>(title.size()), title.data(),
                static_cast<int>(unit.size()), unit.data());
    for (const Comparison& comparison : m_comparisons)
        PrintLine(comparison);
}

void Suite::PrintLine(const Comparison& comparison) const
{
    const Results& results = comparison.WaitsForDisk ? m_elapsedTimes : m_cpuTimes;
    const bool hasPeer = !comparison.Peer.empty();
    if (!results.contains(comparison.Ours) || (hasPeer && !results.contains(comparison.Peer))) {
        std::printf("| %s | not run | | | | | |\n", comparison.Name.c_str());
        return;
    }
    const auto result = [&](const std::string& name) { return results.at(name) / m_rows.at(name); };
    double judged = result(comparison.Ours);
    std::printf("| %s | %s | %.1f |", comparison.Name.c_str(), comparison.Peer.c_str(), judged);
    if (hasPeer) {
        const double peer = result(comparison.Peer);
        judged /= peer;
        std::printf(" %.1f | %.2f |", peer, judged);
    } else {
        std::printf(" | |");
    }
    if (hasPeer && comparison.Goal == 0)
        std::printf(" | |\n");
    else
        std::printf(" %g | %s |\n", comparison.Goal, judged <= comparison.Goal ? "yes" : "**no**");
}

double LowResult(const std::vector<double>& results)
{
    std::vector<double> sorted = results;
    std::ranges::sort(sorted);
    return sorted[sorted.size() / lowShare];
}

int RunProgram(int argc, char** argv, int (*body)(int, char**))
{
    try {
        return body(argc, argv);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "%s\n", e.what());
        return EXIT_FAILURE;
    }
}

} // namespace bench
