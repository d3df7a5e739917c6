// Measurements in pairs: the library against a peer, both in the same run, shown as rows of a Markdown table.
#pragma once

#include <benchmark/benchmark.h>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace bench
{

// The unit of Suite::Run's results; append what a row is.
inline const std::string threadTime = "ns of the thread's CPU time ";

// A line of the table. Ours and Peer are names of measurements.
struct Comparison {
    std::string Name;
    std::string Ours;
    std::string Peer;          // empty: the goal is the maximum of ours itself
    double Goal = 0;           // maximum ratio of ours to the peer's; 0: no goal
    bool WaitsForDisk = false; // compares the elapsed time
};

// Runs each measurement many times for a moment, in random order, and compares the times that one in five of
// the runs stays below: what else the machine does only adds to a time, so the low ones are the program's
// own. Time is the CPU time of the measuring thread, unless the work waits for the disk.
class Suite
{
public:
    // Takes Google Benchmark's options from the command line. The options passed here are the program's
    // defaults.
    Suite(int argc, char** argv, std::vector<std::string> options = {});

    // Adds a measurement, whose times are divided by the number of rows. Names are unique within a suite.
    void Add(const std::string& name, double rows, std::function<void(benchmark::State&)> body);
    void Compare(Comparison comparison) { m_comparisons.push_back(std::move(comparison)); }

    // Runs and removes the measurements that were added since the last run. Reports to standard error.
    void Run();

    // Records the result of a measurement that the program made itself.
    void Record(const std::string& name, double result);

    // Prints the comparisons of all runs. The unit describes the numbers.
    void PrintTable(std::string_view title, std::string_view unit) const;

private:
    using Results = std::map<std::string, double>; // by measurement

    void PrintLine(const Comparison& comparison) const;

    Results m_rows;
    Results m_cpuTimes;
    Results m_elapsedTimes;
    std::vector<Comparison> m_comparisons;
};

// The result that one in five stays below. The results must not be empty.
double LowResult(const std::vector<double>& results);

// Runs the body of a main function and returns its result, or prints the exception that it raised and returns
// EXIT_FAILURE.
int RunProgram(int argc, char** argv, int (*body)(int, char**));

} // namespace bench
