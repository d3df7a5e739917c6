// Runs another program and gathers what it prints.
#pragma once

#include <string>
#include <vector>

namespace test
{

struct Outcome {
    int Status = -1; // exit status, or 128 and the number of the signal that ended it
    std::string Output;
    std::string Errors;
};

// Runs arguments[0] (found on the search path) with this process's environment, in which the settings
// "NAME=VALUE" stand; waits for its end.
Outcome Run(const std::vector<std::string>& arguments, const std::vector<std::string>& environment);

} // namespace test
