#include "Options.h"

#include "Texts.h"

#include "styleatlas.h"

#include <bindings/terminal/CommandLine.h>
#include <bindings/terminal/Text.h>

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>
#include <string>

#include <getopt.h>

namespace atlashost
{

using styleatlas::terminal::Printable;
using styleatlas::terminal::RejectedOption;
using styleatlas::terminal::UsageError;

std::string Usage()
{
    return Text(R"(Usage: atlas-host [options] list FILE.csv...
       atlas-host [options] plot FILE.csv...
       atlas-host [options] table
       atlas-host [options] window [FILE.csv...]
       atlas-host [options] edit
       atlas-host [options] prepare
       atlas-host layout ARGUMENT...

Shows how the curves of measured data are drawn.

  list FILE.csv...      the curves of the files; the first file is file column 0, and so on
  plot FILE.csv...      the curves themselves, a panel for each quantity; Esc closes the window
  table                 all quantities of the unit library, in one file column
  window [FILE.csv...]  a window with the curves, from which the styles can be edited
  edit                  the editor of the styles alone
  prepare               makes the folder of the host's layout file, and prints it

  layout ARGUMENT...    runs atlas-layout, which shows, checks and compares layout files

  --host NAME           the name by which this host is known to the style atlas (AirLab)
  --column N            the file column of the command table, 0 to 31 (0)
  -o, --output FILE     the command plot writes a picture and opens no window; it needs no display. The suffix
                        .png, .svg or .pdf decides on the kind
  --png FILE            the same, a PNG file with any suffix
  --size WxH            the size of that picture in pixels, each 100 to 8192 (one that suits the plot)
  --help                show this text
  --version             show the version

The messages of list, plot -o, table, prepare and layout go to standard error, with a display too.

Exit status: 0 where all went well; 1 where something could not be read, written or shown; 2 where the command
line was not understood. The command edit ends with 0 after OK and 3 after Cancel; the command layout as
atlas-layout does.
)");
}

namespace
{

enum Option : int { Host = 1, Column, Output, Png, Size, Help, Version, Unknown = '?', NoArgument = ':' };

constexpr option LongOptions[] = {
    {"host", required_argument, nullptr, Host},     {"column", required_argument, nullptr, Column},
    {"output", required_argument, nullptr, Output}, {"png", required_argument, nullptr, Png},
    {"size", required_argument, nullptr, Size},     {"help", no_argument, nullptr, Help},
    {"version", no_argument, nullptr, Version},     {},
};

std::int16_t ParseColumn(std::string_view text)
{
    std::int16_t column = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), column);
    if (error != std::errc{} || stop != text.data() + text.size() || column < 0 ||
        column >= STYLEATLAS_FILE_COLUMNS)
        throw UsageError{Text("--column takes a number from 0 to %1, not \"%2\"",
                              {std::to_string(STYLEATLAS_FILE_COLUMNS - 1), Printable(text)})};
    return column;
}

PictureFormat ParseFormat(std::string_view path)
{
    if (const std::optional<PictureFormat> format = FormatOf(path))
        return *format;
    throw UsageError{
        Text("-o takes a file whose name ends with .png, .svg or .pdf, not \"%1\"", {Printable(path)})};
}

// "1200x800"
void ParseSize(std::string_view text, PlotTarget& target)
{
    const char* const end = text.data() + text.size();
    const auto [cross, widthError] = std::from_chars(text.data(), end, target.width);
    const bool hasCross = widthError == std::errc{} && cross != end && *cross == 'x';
    const auto isSide = [](int side) { return side >= MinSide && side <= MaxSide; };
    if (hasCross) {
        const auto [stop, heightError] = std::from_chars(cross + 1, end, target.height);
        if (heightError == std::errc{} && stop == end && isSide(target.width) && isSide(target.height))
            return;
    }
    throw UsageError{Text("--size takes a width and a height from %1 to %2 as in 1200x800, not \"%3\"",
                          {std::to_string(MinSide), std::to_string(MaxSide), Printable(text)})};
}

constexpr std::size_t AnyNumber = std::numeric_limits<std::size_t>::max();

constexpr std::string_view LayoutCommand = "layout";

struct Command {
    std::string_view name;
    Action action;
    std::size_t minFiles;
    std::size_t maxFiles;
};
constexpr Command Commands[] = {
    {"list", Action::List, 1, AnyNumber},
    {"plot", Action::Plot, 1, AnyNumber},
    {"table", Action::Table, 0, 0},
    {"window", Action::Window, 0, AnyNumber},
    {"edit", Action::Edit, 0, 0},
    {"prepare", Action::Prepare, 0, 0},
    {LayoutCommand, Action::Layout, 0, AnyNumber},
};

void ReadCommand(std::span<const char* const> words, Options& options)
{
    if (words.empty())
        throw UsageError{Text("a command is missing")};
    const std::string name = words.front();
    const auto* const command = std::ranges::find(Commands, name, &Command::name);
    if (command == std::ranges::end(Commands))
        throw UsageError{Text("unknown command \"%1\"", {Printable(name)})};
    options.action = command->action;
    options.files = words.subspan(1);
    if (options.files.size() < command->minFiles || options.files.size() > command->maxFiles)
        throw UsageError{command->maxFiles == 0 ? Text("the command %1 takes no files", {name})
                                                : Text("the command %1 takes at least one file", {name})};
}

} // namespace

Options ReadOptions(int argc, char** argv)
{
    Options options;
    const std::span<const char* const> words{argv, static_cast<std::size_t>(argc)};
    if (words.size() > 1 && words[1] == LayoutCommand) { // the options behind it are the tool's
        ReadCommand(words.subspan(1), options);
        return options;
    }
    opterr = 0;
    for (int option = 0; (option = getopt_long(argc, argv, ":o:", LongOptions, nullptr)) != -1;) {
        switch (option) {
        case Host:
            options.hostName = optarg;
            break;
        case Column:
            options.fileColumn = ParseColumn(optarg);
            break;
        case 'o':
        case Output:
            options.plot.path = optarg;
            options.plot.format = ParseFormat(optarg);
            break;
        case Png:
            options.plot.path = optarg;
            options.plot.format = PictureFormat::Png;
            break;
        case Size:
            ParseSize(optarg, options.plot);
            break;
        case Help:
            return options;
        case Version:
            options.action = Action::Version;
            return options;
        case NoArgument:
            throw UsageError{Text("the option %1 needs a value", {RejectedOption(argv)})};
        default:
            throw UsageError{Text("unknown option %1", {RejectedOption(argv)})};
        }
    }
    ReadCommand(words.subspan(static_cast<std::size_t>(optind)), options);
    return options;
}

} // namespace atlashost
