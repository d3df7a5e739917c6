// Runs another program and gathers what it prints.
#pragma once

#include <string>
#include <vector>

namespace test
{

struct Outcome {
    int Status = 0; // exit status, or the number of the signal that ended it, with a minus
    std::string Output;
    std::string Errors;
};

// Runs arguments[0] (found on the search path) with this process's environment, in which the settings
// "NAME=VALUE" stand and names without a value don't; waits for its end. What it prints goes to the
// descriptor, if one is given.
Outcome Run(const std::vector<std::string>& arguments, const std::vector<std::string>& environment,
            int output = -1);

} // namespace test
