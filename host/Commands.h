// Commands.h: what the program can do. Each command prints on standard output, tells what is wrong on
// standard error, and returns the program's exit status. The host has named itself before.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace atlashost
{

constexpr int Succeeded = 0;
constexpr int Failed = 1;     // a file could not be read, or the output not be written
constexpr int WrongUsage = 2; // the command line was not understood

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

// Draws the curves of the files, a panel for each quantity, in the styles that the style atlas gives. Throws
// std::runtime_error where the picture cannot be written.
int PlotCurves(std::span<const char* const> paths, const PlotTarget& target);

// Shows every quantity of the unit library and how it is drawn in one file column.
int ShowTable(std::int16_t fileColumn);

} // namespace atlashost
