// The run of a suite on Google Benchmark, and its table.
#include "Suite.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>

namespace
{

const std::vector<std::string> commonOptions = {
    "--benchmark_enable_random_interleaving=true",
    "--benchmark_report_aggregates_only=true",
};
constexpr std::string_view medianName = "median";

// Reports to the console as usual and keeps the medians.
class MedianReporter : public benchmark::ConsoleReporter
{
public:
    MedianReporter(std::map<std::string, double>& medians, std::map<std::string, double>& elapsed)
        : ConsoleReporter(OO_None), m_medians(medians), m_elapsed(elapsed)
    {
    }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.aggregate_name != medianName)
                continue;
            m_medians[run.run_name.function_name] = run.GetAdjustedCPUTime();
            m_elapsed[run.run_name.function_name] = run.GetAdjustedRealTime();
        }
        ConsoleReporter::ReportRuns(runs);
    }

private:
    std::map<std::string, double>& m_medians;
    std::map<std::string, double>& m_elapsed;
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
    benchmark::RegisterBenchmark(name.c_str(), std::move(body))->UseRealTime()->Unit(benchmark::kNanosecond);
}

void Suite::Run()
{
    MedianReporter reporter(m_medians, m_elapsed);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::ClearRegisteredBenchmarks();
}

void Suite::Record(const std::string& name, double median)
{
    m_rows[name] = 1;
    m_medians[name] = median;
}

void Suite::PrintTable(std::string_view title, std::string_view unit) const
{
    std::printf("\n%.*s (medians, %.*s)\n", static_cast<int>(title.size()), title.data(),
                static_cast<int>(unit.size()), unit.data());
    std::printf("%-30s %-33s %12s %12s %7s %8s  %s\n", "case", "peer", "ours", "peer", "ratio", "goal",
                "met");
    for (const Comparison& comparison : m_comparisons)
        PrintLine(comparison);
}

void Suite::PrintLine(const Comparison& comparison) const
{
    PrintRatio(comparison.Name, comparison, m_medians, comparison.Goal);
    if (comparison.WaitsForDisk)
        PrintRatio("  the same, elapsed time", comparison, m_elapsed, 0);
}

void Suite::PrintRatio(const std::string& name, const Comparison& comparison, const Medians& medians,
                       double goal) const
{
    const auto ours = medians.find(comparison.Ours);
    const auto peer = medians.find(comparison.Peer);
    if (ours == medians.end() || peer == medians.end()) {
        std::printf("%-30s %-33s not run\n", name.c_str(), comparison.Peer.c_str());
        return;
    }
    const double oursNumber = ours->second / m_rows.at(comparison.Ours);
    const double peerNumber = peer->second / m_rows.at(comparison.Peer);
    const double ratio = oursNumber / peerNumber;
    std::printf("%-30s %-33s %12.1f %12.1f %7.2f ", name.c_str(), comparison.Peer.c_str(), oursNumber,
                peerNumber, ratio);
    if (goal == 0)
        std::printf("%8s  %s\n", "-", "-");
    else
        std::printf("<= %5.2f  %s\n", goal, ratio <= goal ? "yes" : "no");
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
