// The storage's peers: the same table on disk as JSON, and the same bytes by bare calls of the system. Any
// failure raises an exception of the standard library's.
#pragma once

#include "PeerTable.h"

#include <filesystem>
#include <string_view>

namespace bench
{

constexpr std::size_t bareBufferSize = 4096; // as much as the library reads at once

// One object a row, with its key and an array of record objects.
void JsonSave(const std::filesystem::path& path, const PlainTable& table);
PlainTable JsonLoad(const std::filesystem::path& path);

// Reads the file to its end and makes so many rows; what was read is thrown away.
PlainTable BareLoad(const std::filesystem::path& path, std::size_t rows);

// Writes a file beside the path, so many bytes at once, and puts it in the path's place when it is on disk.
void ReplaceFile(const std::filesystem::path& path, std::string_view bytes, std::size_t atOnce);

} // namespace bench
