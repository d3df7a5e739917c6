// The content of a file.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace atlashost
{

// Called at intervals of less than a tenth of a second with the amount done; false cancels the work.
using Progress = std::function<bool(std::size_t done, std::size_t all)>;

// Throws std::runtime_error with a printable reason if the progress, which may be empty, cancels.
void GoOn(const Progress& progress, std::size_t done, std::size_t all);

// The bytes of a regular file of at most 64 MiB. Throws std::runtime_error with a printable reason. What is
// done is counted up to the half of all: the other half is for the user of the content.
std::string ReadFileContent(const std::string& path, const Progress& progress = {});

} // namespace atlashost
