#include "Commands.h"

#include "InputFiles.h"
#include "LayoutFile.h"
#include "LayoutWords.h"
#include "SettingsFolder.h"
#include "Text.h"
#include "WholeFile.h"

#include <cstddef>
#include <iomanip>
#include <iostream>
#include <set>
#include <stdexcept>
#include <string>

namespace atlashost
{
namespace
{

constexpr int ColumnsWidth = 22; // of the words for a run of file columns

// Gives each file that can be read, and its path as it can be printed, to the function, which returns its
// exit status. Returns the worst.
template <class Handle> int ForEachLayout(std::span<const char* const> paths, Handle handle)
{
    int status = Succeeded;
    for (const char* const path : paths) {
        const std::string shownPath = Printable(path, std::string::npos);
        try {
            const LayoutFile file{ReadWholeFile(path, LayoutFile::MostMebibytes)};
            status = std::max(status, handle(file, shownPath));
        } catch (const std::runtime_error& error) {
            Tell(shownPath + ": " + error.what());
            status = Failed;
        }
    }
    return status;
}

void ShowRow(const LayoutFile& file, const LayoutRow& row, ColorDepth colors)
{
    std::cout << '\n' << IdentityWords(row.identity) << "; " << RowWords(row) << '\n';
    const auto wordsOf = [&](std::size_t i) {
        const LayoutRecord record = file.RecordOf(row, i);
        return Swatch(record.style, colors) + RecordWords(record);
    };
    ForEachRun(row.recordCount, wordsOf, [](std::size_t first, std::size_t last, const std::string& words) {
        std::cout << "  " << std::left << std::setw(ColumnsWidth) << ColumnWords(first, last) << "  " << words
                  << '\n';
    });
}

int ShowLayout(const LayoutFile& file, const std::string& shownPath)
{
    const ColorDepth colors = ColorsOfOutput();
    std::cout << shownPath << ": " << HeadWords(file) << ", " << Counted(file.RowCount(), "row") << '\n';
    for (const LayoutRow& row : file.Rows())
        ShowRow(file, row, colors);
    if (!file.Damage())
        return Succeeded;
    Tell(shownPath + ": " + DamageWords(*file.Damage()));
    return Failed;
}

int CheckLayout(const LayoutFile& file, const std::string& shownPath)
{
    if (file.Damage()) {
        std::cout << shownPath << ": " << DamageWords(*file.Damage()) << '\n';
        return Failed;
    }
    std::set<RowIdentity> identities;
    std::size_t records = 0;
    for (const LayoutRow& row : file.Rows()) {
        identities.insert(row.identity);
        records += row.recordCount;
    }
    std::cout << shownPath << ": good, " << Counted(file.Rows().size(), "row") << " with "
              << Counted(records, "record");
    if (const std::size_t repeated = file.Rows().size() - identities.size(); repeated > 0)
        std::cout << "; " << Counted(repeated, "row") << " in the place of earlier ones";
    if (file.SpareBytes() > 0)
        std::cout << "; " << Counted(file.SpareBytes(), "byte") << " that nobody reads at the end";
    std::cout << '\n';
    return Succeeded;
}

} // namespace

int ShowLayouts(std::span<const char* const> paths)
{
    return ForEachLayout(paths, ShowLayout);
}

int CheckLayouts(std::span<const char* const> paths)
{
    return ForEachLayout(paths, CheckLayout);
}

int PrepareFolder(std::string_view hostName)
{
    CreateSettingsFolder(hostName);
    std::cout << std::filesystem::absolute(SettingsFolder(hostName)).native() << '\n';
    return Succeeded;
}

} // namespace atlashost
