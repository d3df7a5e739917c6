// Command lines that are read with getopt_long.
#pragma once

#include <stdexcept>
#include <string>

namespace styleatlas::terminal
{

// What is wrong with a command line.
class UsageError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

// The option that getopt_long has rejected last, printable and in quotation marks. Codes of long options must
// be below that of a blank.
std::string RejectedOption(const char* const* argv);

} // namespace styleatlas::terminal
