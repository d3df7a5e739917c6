// atlas-layout: the tool for layout files of the style atlas.
#include "Commands.h"
#include "HostFolder.h"
#include "Texts.h"

#include <bindings/terminal/CommandLine.h>
#include <bindings/terminal/Text.h>
#include <model/HostSettings.h>

#include <algorithm>
#include <clocale>
#include <iostream>
#include <limits>
#include <string_view>

namespace atlaslayout
{
namespace
{

using namespace styleatlas::terminal;

std::string Usage()
{
    return Text(R"(Usage: atlas-layout show FILE...
       atlas-layout check FILE...
       atlas-layout diff OLD NEW
       atlas-layout explain [--host NAME | FILE] QUANTITY [--column N]
       atlas-layout distinct [--host NAME | FILE] [--columns A-B] [--quantities LIST] [--against COLOUR]
       atlas-layout export FILE
       atlas-layout import DOCUMENT [FILE]
       atlas-layout merge BASE OURS THEIRS [--output FILE] [--ours | --theirs]
       atlas-layout prepare HOST
       atlas-layout key HOST

Works on layout files, the files in which the style atlas keeps its styles.

  show FILE...   what stands in layout files
  check FILE...  whether they are good, or where they are damaged and how
  diff OLD NEW   the rows and styles in which two layout files differ
  explain        which row of the table gives a quantity its style, and why
  distinct       the curves that cannot be told apart, or hardly be seen
  export FILE    the layout file as JSON, for version control
  import         makes the layout file of such a document; "-" is standard input, and without FILE it goes to
                 standard output
  merge          takes the changes of OURS and THEIRS since BASE together, in OURS; where they conflict, lists the
                 conflicts and writes nothing
  prepare HOST   makes the folder of the layout file of a host of this name, and prints it
  key HOST       the registry key below HKEY_USERS in which such a host finds its settings

QUANTITY is a symbol, or numbers as in 20,1,0,5,0x0: quantity, sub-quantity, index, device, flags. The last ones can be
left out. Without a host and a file, the styles are those of a host without a layout file.

  --host NAME        the table of a host of this name
  --column N         the file column of the command explain (0)
  --columns A-B      the file columns of the command distinct (0-31)
  --quantities LIST  its quantities, as numbers, ranges and symbols: 10,20-23,U (all)
  --against COLOUR   the ground of its curves, as #FFFFE0 or by its English name (white)
  --json             the format of export and import, which have no other
  --output FILE      where merge writes
  --ours, --theirs   whose value merge takes where there is a conflict
  --help             show this text
  --version          show the version

Exit status: 0 where all went well; 1 where something could not be read, made or written, or a layout file is
damaged; 2 where the command line was not understood. The command diff ends with 0 where the files are the same,
1 where they differ, and 2 where they cannot be compared. In the same way explain ends with 1 where there is no
style, distinct where it has found something, and merge where there are conflicts.
)");
}

// Marks a text for the translators.
constexpr const char* Marked(const char* english)
{
    return english;
}

const char* HostName(Words words)
{
    if (!IsHostName(words[0]))
        throw UsageError{Text("\"%1\" cannot be the name of a folder", {Printable(words[0])})};
    return words[0];
}

int PrepareFolder(Words words, const Options& /*options*/)
{
    std::cout << MakeHostFolder(HostName(words)) << '\n';
    return Succeeded;
}

int ShowKey(Words words, const Options& /*options*/)
{
    std::cout << ToUtf8(k_HostSettings::SubKeyOf(ToUtf16(HostName(words)).c_str())) << '\n';
    return Succeeded;
}

constexpr std::size_t AnyNumber = std::numeric_limits<std::size_t>::max();

struct Command {
    std::string_view name;
    int (*run)(Words words, const Options& options);
    const char* wordsText;
    std::size_t minWords;
    std::size_t maxWords;
    unsigned options = 0;
    int failure = Failed; // where it can't do its work
};
constexpr Command Commands[] = {
    {"show", ShowLayouts, Marked("at least one file"), 1, AnyNumber},
    {"check", CheckLayouts, Marked("at least one file"), 1, AnyNumber},
    {"diff", CompareLayouts, Marked("two files"), 2, 2, 0, NoAnswer},
    {"explain", ExplainStyle, Marked("a quantity, and a file before it or a host"), 1, 2,
     BitOf(Option::Host) | BitOf(Option::Column), NoAnswer},
    {"distinct", FindAlike, Marked("a file or a host"), 0, 1,
     BitOf(Option::Host) | BitOf(Option::Columns) | BitOf(Option::Quantities) | BitOf(Option::Against),
     NoAnswer},
    {"export", ExportLayout, Marked("one file"), 1, 1, BitOf(Option::Json)},
    {"import", ImportLayout, Marked("a JSON document and at most one file"), 1, 2, BitOf(Option::Json)},
    {"merge", MergeLayouts, Marked("three files"), 3, 3,
     BitOf(Option::Output) | BitOf(Option::Ours) | BitOf(Option::Theirs), NoAnswer},
    {"prepare", PrepareFolder, Marked("the name of a host"), 1, 1},
    {"key", ShowKey, Marked("the name of a host"), 1, 1},
};

int RunCommand(Words words, const Options& options)
{
    if (words.empty())
        throw UsageError{Text("a command is missing")};
    const std::string_view name = words.front();
    words = words.subspan(1);
    const auto* const command = std::ranges::find(Commands, name, &Command::name);
    if (command == std::ranges::end(Commands))
        throw UsageError{Text("unknown command \"%1\"", {Printable(name)})};
    options.Require(command->options);
    const std::size_t maxWords =
        command->maxWords - (options.Has(Option::Host) ? 1 : 0); // a host stands for a file
    if (words.size() < command->minWords || words.size() > maxWords)
        throw UsageError{Text("the command %1 takes %2", {std::string{name}, Text(command->wordsText)})};
    try {
        const int status = command->run(words, options);
        if (std::cout.flush())
            return status;
        PrintError(Text("the output cannot be written"));
    } catch (const UsageError&) {
        throw;
    } catch (const std::exception& error) {
        PrintError(error.what());
    }
    return command->failure;
}

int Run(int argc, char** argv)
{
    Options options;
    const int first = ReadOptions(argc, argv, options);
    if (options.Has(Option::Help)) {
        std::cout << Usage();
    } else if (options.Has(Option::Version)) {
        std::cout << ProgramName << " " ATLAS_LAYOUT_VERSION "\n";
    } else {
        return RunCommand({argv + first, static_cast<std::size_t>(argc - first)}, options);
    }
    if (std::cout.flush())
        return Succeeded;
    PrintError(Text("the output cannot be written"));
    return Failed;
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
    // For the reasons that the system gives. Numbers stay as they are in files.
    std::setlocale(LC_CTYPE, "");
    std::setlocale(LC_MESSAGES, "");
    try {
        return Run(argc, argv);
    } catch (const styleatlas::terminal::UsageError& error) {
        PrintError(Text("%1; try --help", {error.what()}));
        return WrongUsage;
    } catch (const std::exception& error) {
        PrintError(error.what());
    }
    return Failed;
}
