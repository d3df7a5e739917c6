// Files on their way to a place in a folder. One is called ".<16 hexadecimal digits>.new-layout" and is
// locked as long as its writer lives; one that nobody has locked is what a killed writer left behind, and the
// next writer in the folder removes it. Folders are native paths with a slash at their end, or empty for the
// current one. Throws std::bad_alloc.
#pragma once

#include <string>
#include <sys/types.h>

// Up to the last slash, that included; empty for the current folder.
std::string FolderOf(const std::string& path);

// A path that no file has.
std::string NewPath(const std::string& folder);

// Makes and locks a file, open for reading and writing; its path is in path. -1, with errno, where the folder
// takes none.
int MakeNewFile(const std::string& folder, mode_t mode, std::string& path);

void RemoveLeftovers(const std::string& folder);

// Puts what was done in a folder on the disk, as far as the file system does so.
void FlushFolder(const std::string& folder);
