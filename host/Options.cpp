#include "Options.h"

#include "SettingsFolder.h"
#include "StyleWords.h"
#include "Text.h"

#include "styleatlas.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string>

#include <getopt.h>

namespace atlashost
{

const char* const Usage =
    R"(Usage: atlas-host [options] list FILE.csv...
       atlas-host [options] plot FILE.csv...
       atlas-host [options] table
       atlas-host [options] window [FILE.csv...]
       atlas-host [options] edit
       atlas-host [options] prepare
       atlas-host layout show FILE...
       atlas-host layout check FILE...
       atlas-host layout diff OLD NEW

Shows how the curves of measured data are drawn.

  list FILE.csv...      the curves of the files; the first file is file column 0, and so on
  plot FILE.csv...      the curves themselves, a panel for each quantity; Esc closes the window
  table                 all quantities of the unit library, in one file column
  window [FILE.csv...]  a window with the curves, from which the styles can be edited
  edit                  the editor of the styles alone
  prepare               makes the folder of the host's layout file, and prints it

  layout show FILE...   what stands in layout files
  layout check FILE...  whether they are good, or where they are damaged and how
  layout diff OLD NEW   the rows and styles in which two layout files differ

  --host NAME           the name by which this host is known to the style atlas (AirLab)
  --column N            the file column of the command table, 0 to 31 (0)
  --png FILE            the command plot writes a PNG file and opens no window; it needs no display
  --size WxH            the size of that picture in pixels, each 100 to 8192 (one that suits the plot)
  --help                show this text
  --version             show the version

What list, plot --png, table, prepare and layout have to tell goes to standard error, with a display too.

Exit status: 0 where all went well; 1 where something could not be read, written or shown, or a layout file
is damaged; 2 where the command line was not understood. The command edit ends with 0 after OK and 3 after
Cancel; the command layout diff with 0 where the files are the same, 1 where they differ, and 2 where one
cannot be compared.
)";

namespace
{

enum Option : int { Host = 1, Column, Png, Size, Help, Version, Unknown = '?', NoArgument = ':' };

constexpr option LongOptions[] = {
    {"host", required_argument, nullptr, Host},
    {"column", required_argument, nullptr, Column},
    {"png", required_argument, nullptr, Png},
    {"size", required_argument, nullptr, Size},
    {"help", no_argument, nullptr, Help},
    {"version", no_argument, nullptr, Version},
    {},
};

// The option that getopt_long stopped at: a short one, of which none is known, can stand in the middle of a
// word.
std::string StoppedAt(const char* word)
{
    return "\"" + (optopt > ' ' ? std::string{'-', static_cast<char>(optopt)} : Printable(word)) + "\"";
}

std::int16_t ParseColumn(std::string_view text)
{
    std::int16_t column = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), column);
    if (error != std::errc{} || stop != text.data() + text.size() || column < 0 ||
        column >= STYLEATLAS_FILE_COLUMNS)
        throw UsageError{"--column takes a number from 0 to " + std::to_string(STYLEATLAS_FILE_COLUMNS - 1) +
                         ", not \"" + Printable(text) + "\""};
    return column;
}

// "1200x800"
void ParseSize(std::string_view text, PlotTarget& target)
{
    const char* const end = text.data() + text.size();
    const auto [cross, widthError] = std::from_chars(text.data(), end, target.width);
    const bool hasCross = widthError == std::errc{} && cross != end && *cross == 'x';
    const auto isSide = [](int side) { return side >= SmallestSide && side <= LargestSide; };
    if (hasCross) {
        const auto [stop, heightError] = std::from_chars(cross + 1, end, target.height);
        if (heightError == std::errc{} && stop == end && isSide(target.width) && isSide(target.height))
            return;
    }
    throw UsageError{"--size takes a width and a height from " + std::to_string(SmallestSide) + " to " +
                     std::to_string(LargestSide) + " as in 1200x800, not \"" + Printable(text) + "\""};
}

constexpr std::size_t AnyNumber = std::numeric_limits<std::size_t>::max();

struct Command {
    std::string_view words;
    Action action;
    std::size_t fewestFiles;
    std::size_t mostFiles;
};
constexpr Command Commands[] = {
    {"list", Action::List, 1, AnyNumber},
    {"plot", Action::Plot, 1, AnyNumber},
    {"table", Action::Table, 0, 0},
    {"window", Action::Window, 0, AnyNumber},
    {"edit", Action::Edit, 0, 0},
    {"prepare", Action::Prepare, 0, 0},
    {"layout show", Action::ShowLayout, 1, AnyNumber},
    {"layout check", Action::CheckLayout, 1, AnyNumber},
    {"layout diff", Action::CompareLayouts, 2, 2},
};
constexpr std::string_view GroupOfCommands = "layout";

const char* FilesOf(const Command& command)
{
    return command.mostFiles == 0 ? "no files" : command.mostFiles == 2 ? "two files" : "at least one file";
}

void ReadCommand(std::span<const char* const> words, Options& options)
{
    if (words.empty())
        throw UsageError{"a command is missing"};
    std::string name = words.front();
    if (words.size() > 1 && name == GroupOfCommands) {
        words = words.subspan(1);
        name.append(" ").append(words.front());
    }
    const auto command = std::ranges::find(Commands, name, &Command::words);
    if (command == std::ranges::end(Commands))
        throw UsageError{"unknown command \"" + Printable(name) + "\""};
    options.action = command->action;
    options.files = words.subspan(1);
    if (options.files.size() < command->fewestFiles || options.files.size() > command->mostFiles)
        throw UsageError{"the command " + name + " takes " + FilesOf(*command)};
}

} // namespace

Options ReadOptions(int argc, char** argv)
{
    Options options;
    opterr = 0;
    for (int option = 0; (option = getopt_long(argc, argv, ":", LongOptions, nullptr)) != -1;) {
        switch (option) {
        case Host:
            options.hostName = optarg;
            if (!IsHostName(options.hostName))
                throw UsageError{"\"" + Printable(options.hostName) + "\" cannot be the name of a folder"};
            break;
        case Column:
            options.fileColumn = ParseColumn(optarg);
            break;
        case Png:
            options.plot.png = optarg;
            break;
        case Size:
            ParseSize(optarg, options.plot);
            break;
        case Help:
            options.action = Action::Help;
            return options;
        case Version:
            options.action = Action::Version;
            return options;
        case NoArgument:
            throw UsageError{"the option " + StoppedAt(argv[optind - 1]) + " needs a value"};
        default:
            throw UsageError{"unknown option " + StoppedAt(argv[optind - 1])};
        }
    }
    ReadCommand({argv + optind, static_cast<std::size_t>(argc - optind)}, options);
    return options;
}

} // namespace atlashost
