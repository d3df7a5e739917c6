// Measurements in pairs: what is ours against a peer, both timed in one run, shown as a table of ratios.
#pragma once

#include <benchmark/benchmark.h>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace bench
{

// A line of the table. The two names are those of measurements.
struct Comparison {
    std::string Name;
    std::string Ours;
    std::string Peer;
    double Goal = 0; // the largest ratio of ours to the peer's that is good enough; 0 where there is no goal
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

    // Prints the comparisons of all runs; unit says what the times stand for.
    void PrintTable(std::string_view title, std::string_view unit) const;

private:
    void PrintLine(const Comparison& comparison) const;

    std::map<std::string, double> m_rows;
    std::map<std::string, double> m_medians; // nanoseconds
    std::vector<Comparison> m_comparisons;
};

// What a program's main gives: the body's result, or a failure that is told where an exception comes out of
// it.
int RunProgram(int argc, char** argv, int (*body)(int, char**));

} // namespace bench
