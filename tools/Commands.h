// What the tool does. Each command prints its results on standard output and returns the exit status. The
// words are as many as the command takes.
#pragma once

#include "Options.h"

#include <span>
#include <string>

namespace atlaslayout
{

constexpr int Succeeded = 0;
constexpr int Failed = 1;     // a file is damaged, or something can't be read, made or written
constexpr int WrongUsage = 2; // the command line was not understood

// Of the commands that answer a question, as of other programs that compare files: yes is Succeeded.
constexpr int Negative = 1;
constexpr int NoAnswer = 2;

constexpr const char* ProgramName = "atlas-layout";

using Words = std::span<const char* const>;

// Prints a message on standard error.
void PrintError(const std::string& message);

// Prints what is in layout files; of a damaged one what stands before the damage.
int ShowLayouts(Words paths, const Options& options);

// Prints of each layout file whether it is good, or where it is damaged and how.
int CheckLayouts(Words paths, const Options& options);

// The commands below throw std::runtime_error if a file is damaged or can't be read or written.

// Prints the rows and styles in which two layout files differ, and nothing if they are the same; the order of
// rows doesn't count.
int CompareLayouts(Words paths, const Options& options);

// Prints which row answers for a quantity, at which stage of the search, and its style.
int ExplainStyle(Words words, const Options& options);

// Prints the curves that can't be told apart, and those that can't be seen.
int FindAlike(Words paths, const Options& options);

// Prints a layout file as JSON.
int ExportLayout(Words paths, const Options& options);

// Writes the layout file of a JSON document.
int ImportLayout(Words paths, const Options& options);

// Merges the changes of two layout files since a third.
int MergeLayouts(Words paths, const Options& options);

} // namespace atlaslayout
