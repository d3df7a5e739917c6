// The commands show and check.
#include "Commands.h"
#include "LayoutReader.h"
#include "LayoutWords.h"

#include <bindings/terminal/StyleWords.h>
#include <bindings/terminal/Text.h>

#include <algorithm>
#include <iomanip>
#include <iostream>
#include <stdexcept>

namespace atlaslayout
{
namespace
{

using namespace styleatlas::terminal;

constexpr int columnsWidth = 22; // of the words for a run of file columns

// Calls handle(reader, printable path) for each file that can be opened. Returns the worst exit status.
template <class Handle> int ForEachLayout(Words paths, Handle handle)
{
    int status = Succeeded;
    for (const char* const path : paths) {
        const std::string shownPath = Printable(path, NoLimit);
        try {
            LayoutReader file{path};
            status = std::max(status, handle(file, shownPath));
        } catch (const std::runtime_error& error) {
            PrintError(shownPath + ": " + error.what());
            status = Failed;
        }
    }
    return status;
}

void ShowRow(const LayoutRow& row, ColorDepth colors)
{
    std::cout << '\n' << KeyWords(row.key) << "; " << RowWords(row) << '\n';
    std::size_t first = 0;
    for (const LayoutRow::Run& run : row.runs) {
        std::cout << "  " << std::left << std::setw(columnsWidth) << ColumnWords(first, run.end - 1) << "  "
                  << Swatch(run.record.style, colors) << RecordWords(run.record) << '\n';
        first = run.end;
    }
}

int ShowLayout(LayoutReader& file, const std::string& shownPath)
{
    const ColorDepth colors = ColorsOfOutput();
    std::cout << shownPath << ": " << HeadWords(file.Head()) << ", " << Counted(file.RowCount(), "row")
              << '\n';
    while (const std::optional<LayoutRow> row = file.Next())
        ShowRow(*row, colors);
    if (!file.Damage())
        return Succeeded;
    PrintError(shownPath + ": " + DamageWords(*file.Damage()));
    return Failed;
}

int CheckLayout(LayoutReader& file, const std::string& shownPath)
{
    std::size_t records = 0;
    while (const std::optional<LayoutRow> row = file.Next())
        records += row->recordCount;
    if (file.Damage()) {
        std::cout << shownPath << ": " << DamageWords(*file.Damage()) << '\n';
        return Failed;
    }
    std::cout << shownPath << ": good, " << Counted(file.RowCount(), "row") << " with "
              << Counted(records, "record");
    if (file.ReplacedRows() > 0)
        std::cout << "; " << Counted(file.ReplacedRows(), "row") << " in the place of earlier ones";
    if (file.UnreadBytes() > 0)
        std::cout << "; " << Counted(file.UnreadBytes(), "byte") << " at the end that nothing reads";
    std::cout << '\n';
    return Succeeded;
}

} // namespace

int ShowLayouts(Words paths, const Options& /*options*/)
{
    return ForEachLayout(paths, ShowLayout);
}

int CheckLayouts(Words paths, const Options& /*options*/)
{
    return ForEachLayout(paths, CheckLayout);
}

} // namespace atlaslayout
