// What stands where a file is to be written: kept beside it, or overwritten where it can't be replaced. All
// paths are native ones without symbolic links at their end. Throws std::bad_alloc.
#pragma once

#include <string>
#include <string_view>

struct stat;

enum class Keeping { byLink, byCopy };

// Keeps the file as NAME~, in place of what had that name: a link to it, or a copy where there are no links
// or the file itself is about to be overwritten. Nothing happens where the folder takes neither.
void KeepAsPrevious(const std::string& path, Keeping keeping);

// Whether the file has another name than its own and NAME~, by which it must go on to be found.
bool HasOtherNames(const std::string& path, const struct stat& status);

// Overwrites an open file, from its first byte to its last, and puts it on the disk; gives what failed, 0 for
// nothing. No byte is touched before there is room for all, and what stood there is put back where it fails
// later on, if it can be read.
int Overwrite(int file, std::string_view contents);

// Copies a file under a name that must be free; gives what failed, 0 for nothing.
int CopyUnder(const std::string& path, const std::string& copy);
