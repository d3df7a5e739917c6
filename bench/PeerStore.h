// The peers of the storage: the same table on disk as JSON, and the same bytes by bare system calls. Failures
// raise exceptions of the standard library.
#pragma once

#include "PeerTable.h"

#include <filesystem>
#include <string_view>

namespace bench
{

constexpr std::size_t bareBufferSize = 4096; // the library's read size

// One object per row, with its key and an array of record objects.
void JsonSave(const std::filesystem::path& path, const PlainTable& table);
PlainTable JsonLoad(const std::filesystem::path& path);

// Reads the file to its end, discards the bytes, and makes a table of so many rows.
PlainTable BareLoad(const std::filesystem::path& path, std::size_t rows);

// Writes a temporary file in chunks, syncs it, and renames it to the path.
void ReplaceFile(const std::filesystem::path& path, std::string_view bytes, std::size_t chunkSize);

} // namespace bench
