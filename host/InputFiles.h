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

// The progress of reading the file of this printable path; returns false to leave that file out.
using FileProgress = std::function<bool(const std::string& shownPath, std::size_t done, std::size_t all)>;

// Reads the files and calls handle, which may move from its argument, for each that can be read. Reports what
// is wrong with a file or a column. Returns Failed if a file could not be read, else Succeeded.
int ForEachFile(std::span<const char* const> paths, const QuantityNames& names, const Report& report,
                const std::function<void(InputFile&)>& handle, const FileProgress& progress = {});

} // namespace atlashost
