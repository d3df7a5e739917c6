// What the program can do. Each command prints its results on standard output and errors on
// standard error, and returns the exit status. The host must have named itself before.
#pragma once

#include "PictureFile.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace atlashost
{

constexpr int Succeeded = 0;
constexpr int Failed = 1;     // a file could not be read, the output not be written, a window not be shown
constexpr int WrongUsage = 2; // the command line was not understood
constexpr int Cancelled = 3;  // the user left the editor without OK

constexpr const char* ProgramName = "atlas-host";

// Lists the curves of the files and how each is drawn. The first file is file column 0, and so on; a file
// that can't be read keeps its column.
int ListCurves(std::span<const char* const> paths);

// The sides of a picture, in pixels.
constexpr int MinSide = 100;
constexpr int MaxSide = 8192;

// A picture, or a window that the user closes.
struct PlotTarget {
    const char* path = nullptr; // null for the window
    PictureFormat format = PictureFormat::Png;
    int width = 0; // of the picture in pixels; 0 for a size that suits the plot
    int height = 0;
};

// Draws the curves of the files, a panel for each quantity. A window needs the QtApplication. Throws
// std::runtime_error if the picture can't be written.
int PlotCurves(std::span<const char* const> paths, const PlotTarget& target);

// Lists every quantity of the unit library and how it is drawn in one file column.
int ShowTable(std::int16_t fileColumn);

// Shows the files in a window, in which more can be opened and the styles can be edited, until the user
// closes it. The errors, of the program's start, are shown there too. Needs the QtApplication.
int ShowWindow(std::string_view hostName, std::span<const char* const> paths,
               std::vector<std::string> startErrors);

// Shows the editor of the styles. Returns Succeeded after OK, Cancelled after Cancel, Failed if it can't be
// shown.
int ShowEditor();

} // namespace atlashost
