// WholeFile.h: files that are read from their first byte to their last.
#pragma once

#include <cstddef>
#include <string>

namespace atlashost
{

constexpr std::size_t MostMebibytes = 64; // of a file that nobody needs to be larger

// The bytes of a regular file. Throws std::runtime_error, whose text says what is wrong in a form that can be
// printed: where the file cannot be read, is not a regular one, or is larger.
std::string ReadWholeFile(const std::string& path, std::size_t mostMebibytes = MostMebibytes);

} // namespace atlashost
