// The storage's bare peer: the same bytes to and from the disk, and the same records on the heap, with
// nothing between them.
#pragma once

#include "PlainTable.h"

#include <filesystem>
#include <string>

namespace bench
{

constexpr std::size_t bareBufferSize = 4096; // as much as the library reads or writes at once

// Reads the file to its end and makes so many rows; what was read is thrown away.
PlainTable BareLoad(const std::filesystem::path& path, std::size_t rows);

// Writes a file beside the path, so many bytes at once, and puts it in the path's place when it is on disk.
// Any failure of these raises std::system_error.
void ReplaceFile(const std::filesystem::path& path, std::string_view bytes, std::size_t atOnce);

} // namespace bench
