// The content of a file.
#pragma once

#include <string>

namespace atlashost
{

// The bytes of a regular file of at most 64 MiB. Throws std::runtime_error with a printable reason.
std::string ReadFileContent(const std::string& path);

} // namespace atlashost
