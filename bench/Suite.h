// Measurements in pairs: the library against a peer, both in the same run, shown as a table of ratios. Time
// is the CPU time of the measuring thread, which other programs don't affect.
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
    std::string Peer;
    double Goal = 0;           // maximum ratio of ours to the peer's; 0: no goal
    bool WaitsForDisk = false; // a second line shows the elapsed time
};

// Runs each measurement several times, in random order, so that a temporary slowdown of the machine affects
// both sides, and compares the medians.
class Suite
{
public:
    // Takes Google Benchmark's options from the command line. The options passed here are the program's
    // defaults.
    Suite(int argc, char** argv, std::vector<std::string> options = {});

    // Adds a measurement, whose times are divided by the number of rows. Names are unique within a suite.
    void Add(const std::string& name, double rows, std::function<void(benchmark::State&)> body);
    void Compare(Comparison comparison) { m_comparisons.push_back(std::move(comparison)); }

    // Runs and removes the measurements that were added since the last run.
    void Run();

    // Records the result of a measurement that the program made itself.
    void Record(const std::string& name, double median);

    // Prints the comparisons of all runs. The unit describes the numbers.
    void PrintTable(std::string_view title, std::string_view unit) const;

private:
    using Medians = std::map<std::string, double>;

    void PrintLine(const Comparison& comparison) const;
    void PrintRatio(const std::string& name, const Comparison& comparison, const Medians& medians,
                    double goal) const;

    std::map<std::string, double> m_rows;
    Medians m_medians; // of the thread's CPU time
    Medians m_elapsed; // of the elapsed time
    std::vector<Comparison> m_comparisons;
};

// Runs the body of a main function and returns its result, or prints the exception that it raised and returns
// EXIT_FAILURE.
int RunProgram(int argc, char** argv, int (*body)(int, char**));

} // namespace bench
