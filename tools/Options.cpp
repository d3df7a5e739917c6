#include "Options.h"

#include "Quantities.h"
#include "Texts.h"

#include <bindings/terminal/CommandLine.h>
#include <bindings/terminal/Text.h>

#include <string>

#include <getopt.h>

namespace atlaslayout
{
namespace
{

using namespace styleatlas::terminal;

constexpr option Known[] = {{"help", no_argument, nullptr, static_cast<int>(Option::Help)},
                            {"version", no_argument, nullptr, static_cast<int>(Option::Version)},
                            {"host", required_argument, nullptr, static_cast<int>(Option::Host)},
                            {"column", required_argument, nullptr, static_cast<int>(Option::Column)},
                            {"columns", required_argument, nullptr, static_cast<int>(Option::Columns)},
                            {"quantities", required_argument, nullptr, static_cast<int>(Option::Quantities)},
                            {"against", required_argument, nullptr, static_cast<int>(Option::Against)},
                            {"json", no_argument, nullptr, static_cast<int>(Option::Json)},
                            {"output", required_argument, nullptr, static_cast<int>(Option::Output)},
                            {"ours", no_argument, nullptr, static_cast<int>(Option::Ours)},
                            {"theirs", no_argument, nullptr, static_cast<int>(Option::Theirs)},
                            {}};

std::string NameOf(Option wanted)
{
    const option* known = Known;
    while (known->val != static_cast<int>(wanted))
        ++known;
    return std::string{"--"} + known->name;
}

} // namespace

int Options::NumberOf(Option option, int byDefault, int max) const
{
    const char* const text = Find(option);
    if (text == nullptr)
        return byDefault;
    if (const auto number = ParseNumber(text, 0, max))
        return static_cast<int>(*number);
    throw UsageError{Text("%1 takes a number from 0 to %2, not \"%3\"",
                          {NameOf(option), std::to_string(max), Printable(text)})};
}

void Options::Require(unsigned allowed) const
{
    for (const auto& [option, value] : m_values) {
        if ((allowed & BitOf(option)) == 0)
            throw UsageError{Text("the command does not take the option %1", {NameOf(option)})};
    }
}

int ReadOptions(int argc, char** argv, Options& options)
{
    opterr = 0;
    for (int code = 0; (code = getopt_long(argc, argv, ":", Known, nullptr)) != -1;) {
        if (code == ':')
            throw UsageError{Text("the option %1 takes an argument", {RejectedOption(argv)})};
        if (code == '?')
            throw UsageError{Text("unknown option %1", {RejectedOption(argv)})};
        options.Set(Option{code}, optarg != nullptr ? optarg : "");
    }
    return optind;
}

} // namespace atlaslayout
