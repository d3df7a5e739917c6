// atlas-layout: shows, checks and compares layout files of the style atlas, and makes the folder of a host's.
#include "Commands.h"
#include "HostFolder.h"

#include <bindings/terminal/CommandLine.h>
#include <bindings/terminal/Text.h>
#include <model/HostSettings.h>

#include <algorithm>
#include <iostream>
#include <limits>
#include <string_view>

#include <getopt.h>

namespace atlaslayout
{
namespace
{

using namespace styleatlas::terminal;
using Words = std::span<const char* const>;

constexpr const char* Usage =
    R"(Usage: atlas-layout show FILE...
       atlas-layout check FILE...
       atlas-layout diff OLD NEW
       atlas-layout prepare HOST
       atlas-layout key HOST

Works on layout files, the files in which the style atlas keeps its styles.

  show FILE...   what stands in layout files
  check FILE...  whether they are good, or where they are damaged and how
  diff OLD NEW   the rows and styles in which two layout files differ
  prepare HOST   makes the folder of the layout file of a host of this name, and prints it
  key HOST       the registry key below HKEY_USERS in which such a host finds its settings

  --help         show this text
  --version      show the version

Exit status: 0 where all went well; 1 where something could not be read, made or written, or a layout file is
damaged; 2 where the command line was not understood. The command diff ends with 0 where the files are the same,
1 where they differ, and 2 where they cannot be compared.
)";

const char* HostName(Words words)
{
    if (!IsHostName(words[0]))
        throw UsageError{"\"" + Printable(words[0]) + "\" cannot be the name of a folder"};
    return words[0];
}

int PrepareFolder(Words words)
{
    std::cout << MakeHostFolder(HostName(words)) << '\n';
    return Succeeded;
}

int ShowKey(Words words)
{
    std::cout << ToUtf8(k_HostSettings::SubKeyOf(ToUtf16(HostName(words)).c_str())) << '\n';
    return Succeeded;
}

int Compare(Words words)
{
    try {
        const int status = CompareLayouts(words[0], words[1]);
        return std::cout.flush() ? status : ComparisonFailed;
    } catch (const std::exception& error) {
        PrintError(error.what());
        return ComparisonFailed;
    }
}

constexpr std::size_t AnyNumber = std::numeric_limits<std::size_t>::max();

struct Command {
    std::string_view name;
    int (*run)(Words words);
    const char* wordsText;
    std::size_t minWords;
    std::size_t maxWords;
};
constexpr Command Commands[] = {
    {"show", ShowLayouts, "at least one file", 1, AnyNumber},
    {"check", CheckLayouts, "at least one file", 1, AnyNumber},
    {"diff", Compare, "two files", 2, 2},
    {"prepare", PrepareFolder, "the name of a host", 1, 1},
    {"key", ShowKey, "the name of a host", 1, 1},
};

int RunCommand(Words words)
{
    if (words.empty())
        throw UsageError{"a command is missing"};
    const std::string_view name = words.front();
    words = words.subspan(1);
    const auto* const command = std::ranges::find(Commands, name, &Command::name);
    if (command == std::ranges::end(Commands))
        throw UsageError{"unknown command \"" + Printable(name) + "\""};
    if (words.size() < command->minWords || words.size() > command->maxWords)
        throw UsageError{"the command " + std::string{name} + " takes " + command->wordsText};
    return command->run(words);
}

int Run(int argc, char** argv)
{
    enum Option : int { Help = 1, Version };
    constexpr option options[] = {
        {"help", no_argument, nullptr, Help}, {"version", no_argument, nullptr, Version}, {}};
    opterr = 0;
    switch (getopt_long(argc, argv, "", options, nullptr)) {
    case -1:
        return RunCommand({argv + optind, static_cast<std::size_t>(argc - optind)});
    case Help:
        std::cout << Usage;
        return Succeeded;
    case Version:
        std::cout << ProgramName << " " ATLAS_LAYOUT_VERSION "\n";
        return Succeeded;
    default:
        throw UsageError{"unknown option " + RejectedOption(argv)};
    }
}

} // namespace

void PrintError(const std::string& message)
{
    std::cerr << ProgramName << ": " << message << '\n';
}

} // namespace atlaslayout

int main(int argc, char** argv)
{
    using namespace atlaslayout;
    try {
        const int status = Run(argc, argv);
        if (std::cout.flush())
            return status;
        PrintError("the output cannot be written");
        return std::max(status, Failed);
    } catch (const styleatlas::terminal::UsageError& error) {
        PrintError(std::string{error.what()} + "; try --help");
        return WrongUsage;
    } catch (const std::exception& error) {
        PrintError(error.what());
    }
    return Failed;
}
