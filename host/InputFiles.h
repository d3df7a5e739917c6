// InputFiles.h: the measured files of a command line, read one after the other.
#pragma once

#include "MeasuredFile.h"
#include "QuantityNames.h"

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace atlashost
{

struct InputFile {
    int fileColumn = 0;    // the place on the command line, counted from 0
    std::string shownPath; // fit to be printed
    MeasuredFile content;
    std::vector<const MeasuredQuantity*> quantities; // of each column; null where none fits
};

// Tells the user something on standard error.
void Tell(const std::string& message);

// Where else to tell it, in a form that can be printed.
using Teller = std::function<void(const std::string& message)>;

// Reads the files, and hands each that can be read to the function, which may take it apart. What is wrong
// with a file or a column is told. Returns Failed where a file could not be read, else Succeeded.
int ForEachFile(std::span<const char* const> paths, const QuantityNames& names, const Teller& tell,
                const std::function<void(InputFile&)>& handle);

} // namespace atlashost
