// CatalogueFile.h: the catalogue on disk: where it is, whether it has changed, and how it is read.
//
// What is wrong with the file is told on standard error, "mensura: <file>:<line>: <reason>", and never stops
// the reading of the rest.
#pragma once

#include "Catalogue.h"

#include <compare>
#include <cstdint>
#include <optional>
#include <string>

namespace mensura
{

// What tells one state of a file from another.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;    // bytes
    std::int64_t seconds = 0; // of the last write, a time that anybody can set
    std::int64_t nanoseconds = 0;
    std::int64_t changeSeconds = 0; // of the last change of any kind, which nobody can
    std::int64_t changeNanoseconds = 0;
    bool operator==(const FileStamp&) const = default;
};

// The file that the environment variable MENSURA_CATALOGUE names, else the one installed with the library.
std::string CataloguePath();

// The stamp of a file as it is now; empty where there is none.
std::optional<FileStamp> StampOf(const std::string& path);

// Reads a catalogue. A file that is missing, is not a regular one, or is larger than 16 MiB gives an empty
// catalogue; a line that cannot be understood, or is longer than 4096 bytes, is left out. Throws
// std::bad_alloc alone.
Catalogue ReadCatalogue(const std::string& path);

} // namespace mensura
