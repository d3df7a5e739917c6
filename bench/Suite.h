// Measurements in pairs: what is ours against a peer, both measured in one run, shown as a table of ratios.
// Time is the CPU time of the measuring thread, which other programs on the machine don't change.
#pragma once

#include <benchmark/benchmark.h>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace bench
{

// The unit of what Suite::Run measures, to be completed by what a row stands for.
inline const std::string threadTime = "ns of the thread's CPU time ";

// A line of the table. The two names are those of measurements.
struct Comparison {
    std::string Name;
    std::string Ours;
    std::string Peer;
    double Goal = 0; // the largest ratio of ours to the peer's that is good enough; 0 where there is no goal
    bool WaitsForDisk = false; // the time that passes is shown on a second line
};

// Runs the measurements in random order, each several times over, so that what slows the machine for a while
// strikes both sides, and compares the medians.
class Suite
{
public:
    // Takes Google Benchmark's options from the command line; those of the program stand in for what isn't
    // given.
    Suite(int argc, char** argv, std::vector<std::string> options = {});

    // Adds a measurement, whose times are divided by a number of rows. The names of one suite differ.
    void Add(const std::string& name, double rows, std::function<void(benchmark::State&)> body);
    void Compare(Comparison comparison) { m_comparisons.push_back(std::move(comparison)); }

    // Runs and removes what has been added since the last run.
    void Run();

    // Stands in for a measurement that the program makes by itself.
    void Record(const std::string& name, double median);

    // Prints the comparisons of all runs; unit says what the numbers are.
    void PrintTable(std::string_view title, std::string_view unit) const;

private:
    using Medians = std::map<std::string, double>;

    void PrintLine(const Comparison& comparison) const;
    void PrintRatio(const std::string& name, const Comparison& comparison, const Medians& medians,
                    double goal) const;

    std::map<std::string, double> m_rows;
    Medians m_medians; // of the thread's CPU time
    Medians m_passed;  // of the time that passed
    std::vector<Comparison> m_comparisons;
};

// What a program's main gives: the body's result, or a failure that is told where an exception comes out of
// it.
int RunProgram(int argc, char** argv, int (*body)(int, char**));

} // namespace bench
