// How many files can have styles of their own.
#pragma once

#include <cstddef>
#include <string>

namespace atlashost
{

// Whether there are styles for a file, counted from 0.
bool HasStyles(std::size_t file);

// What to report where there are more files than file columns; empty otherwise.
std::string FileLimitRemark(std::size_t files);

} // namespace atlashost
