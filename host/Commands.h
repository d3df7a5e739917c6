// Commands.h: what the program can do. Each command prints on standard output, tells what is wrong on
// standard error, and returns the program's exit status. The host has named itself before, but for the
// commands on layout files and their folder, which do without the style atlas.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace atlashost
{

constexpr int Succeeded = 0;
constexpr int Failed = 1;     // a file could not be read, the output not be written, a window not be shown
constexpr int WrongUsage = 2; // the command line was not understood
constexpr int Cancelled = 3;  // the user left the editor without OK

// Of two layout files, as of any two files that are compared.
constexpr int LayoutsDiffer = 1;
constexpr int ComparisonFailed = 2;

constexpr const char* ProgramName = "atlas-host";

// Shows the curves of the files and how each is drawn. The first file is file column 0, and so on; a file
// that cannot be read keeps its column, and the others are shown.
int ListCurves(std::span<const char* const> paths);

// The sides of a picture, in pixels.
constexpr int SmallestSide = 100;
constexpr int LargestSide = 8192;

// Where a plot goes: into a PNG file, or, without one, into a window until the user closes it.
struct PlotTarget {
    const char* png = nullptr; // the path, null for the window
    int width = 0;             // of the picture in pixels; 0 for a size that suits the plot
    int height = 0;
};

// Draws the curves of the files, a panel for each quantity, in the styles that the style atlas gives. A
// window wants the Desktop. Throws std::runtime_error where the picture cannot be written.
int PlotCurves(std::span<const char* const> paths, const PlotTarget& target);

// Shows every quantity of the unit library and how it is drawn in one file column.
int ShowTable(std::int16_t fileColumn);

// Shows the files in a window, in which more of them can be opened and the styles be edited, until the user
// closes it. Wants the Desktop.
int ShowWindow(std::string_view hostName, std::span<const char* const> paths);

// Shows the editor of the styles alone. Returns Succeeded after OK, Cancelled after Cancel, and Failed where
// it cannot be shown.
int ShowEditor();

// Makes the folder of the host's layout file, and prints it. Throws std::filesystem::filesystem_error.
int PrepareFolder(std::string_view hostName);

// Prints what stands in layout files; of a damaged one what stands before the damage.
int ShowLayouts(std::span<const char* const> paths);

// Tells of each layout file whether it is good, or where it is damaged and how. Failed where one is damaged.
int CheckLayouts(std::span<const char* const> paths);

// Prints the rows and the styles in which two layout files differ, and nothing where they are the same; the
// order of rows counts for nothing. Returns Succeeded or LayoutsDiffer; throws std::runtime_error where a
// file cannot be read or is damaged.
int CompareLayouts(const char* oldPath, const char* newPath);

} // namespace atlashost
