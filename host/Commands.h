// Commands.h: what the program can do. Each command prints its results on standard output and errors on
// standard error, and returns the exit status. The host must have named itself before.
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

} // namespace atlashost
