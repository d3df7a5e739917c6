// The catalogue on disk: where it is, whether it has changed, and how it is read.
//
// Errors in the file go to standard error as "mensura: <file>:<line>: <reason>"; the other lines count all
// the same.
#pragma once

#include "UnitCatalogue.h"

#include <cstdint>
#include <optional>
#include <string>

namespace mensura
{

// Identifies one state of a file.
struct FileStamp {
    std::uint64_t Device = 0;
    std::uint64_t Inode = 0;
    std::int64_t Size = 0;    // bytes
    std::int64_t Seconds = 0; // of the last write, a time that any program can set
    std::int64_t Nanoseconds = 0;
    std::int64_t ChangeSeconds = 0; // of the last change of any kind, which none can set
    std::int64_t ChangeNanoseconds = 0;
    bool operator==(const FileStamp&) const = default;
};

// The file that the environment variable MENSURA_CATALOGUE names, else the one installed with the library.
std::string UnitCataloguePath();

// The stamp of a file as it is now; empty if there is none.
std::optional<FileStamp> StampOf(const std::string& path);

// Reads a catalogue: an empty one from a file that is missing, not a regular one, or larger than 16 MiB.
// Lines with errors, or of more than 4096 bytes, are left out. Throws std::bad_alloc alone.
UnitCatalogue ReadUnitCatalogue(const std::string& path);

} // namespace mensura
