// What the tool does. Each command prints its results on standard output and returns the exit status.
#pragma once

#include <span>
#include <string>

namespace atlaslayout
{

constexpr int Succeeded = 0;
constexpr int Failed = 1;     // a file is damaged, or something can't be read, made or written
constexpr int WrongUsage = 2; // the command line was not understood

// Of the comparison, as of other programs that compare files.
constexpr int LayoutsDiffer = 1;
constexpr int ComparisonFailed = 2;

constexpr const char* ProgramName = "atlas-layout";

// Prints a message on standard error.
void PrintError(const std::string& message);

// Prints what is in layout files; of a damaged one what stands before the damage.
int ShowLayouts(std::span<const char* const> paths);

// Prints of each layout file whether it is good, or where it is damaged and how.
int CheckLayouts(std::span<const char* const> paths);

// Prints the rows and styles in which two layout files differ, and nothing if they are the same; the order of
// rows doesn't count. Throws std::runtime_error if a file is damaged or can't be read.
int CompareLayouts(const char* oldPath, const char* newPath);

} // namespace atlaslayout
