#include "CommandLine.h"

#include "Text.h"

#include <getopt.h>

namespace styleatlas::terminal
{

// A short option can be in the middle of a word, which getopt_long has not left then.
std::string RejectedOption(const char* const* argv)
{
    const bool isShort = optopt > ' ';
    return "\"" + (isShort ? std::string{'-', static_cast<char>(optopt)} : Printable(argv[optind - 1])) +
           "\"";
}

} // namespace styleatlas::terminal
