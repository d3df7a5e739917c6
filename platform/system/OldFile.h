// The file that a save replaces: kept as NAME~, or overwritten in place if it can't be replaced. Paths are
// native and don't end in a symbolic link. Functions throw std::bad_alloc.
#pragma once

#include <string>
#include <string_view>

struct stat;

enum class Keeping { byLink, byCopy };

// Keeps the file as NAME~, replacing an older one: as a hard link, or as a copy if links fail or the file is
// about to be overwritten. Does nothing if the folder allows neither.
void KeepAsPrevious(const std::string& path, Keeping keeping);

// Whether the file has hard links other than its name and NAME~; a replacement would break them.
bool HasOtherNames(const std::string& path, const struct stat& status);

// Replaces the contents of an open file and syncs it; returns errno, or 0. Reserves the room first, and
// restores the old contents on an error if they can be read.
int Overwrite(int file, std::string_view contents);

// Copies a file to a path that must not exist; returns errno, or 0.
int CopyUnder(const std::string& path, const std::string& copy);
