// Reads the measured files of a command line one by one.
#pragma once

#include "MeasuredFile.h"
#include "QuantityNames.h"
#include "Report.h"

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace atlashost
{

struct InputFile {
    int fileColumn = 0;    // its place on the command line
    std::string shownPath; // printable
    MeasuredFile content;
    std::vector<const MeasuredQuantity*> quantities; // of each column; null where none fits
};

// Reads the files and calls handle, which may move from its argument, for each that can be read. Reports what
// is wrong with a file or a column. Returns Failed if a file could not be read, else Succeeded.
int ForEachFile(std::span<const char* const> paths, const QuantityNames& names, const Report& report,
                const std::function<void(InputFile&)>& handle);

} // namespace atlashost
