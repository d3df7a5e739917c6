// Temporary files, to be renamed to their place in the same folder. Their names are ".<16 hexadecimal
// digits>.new-layout". The writer holds a lock on its file; one without a lock is left over from a writer
// that was killed, and the next writer removes it. Folders are native paths with a slash at their end, or
// empty for the current one. Functions throw std::bad_alloc.
#pragma once

#include <string>
#include <sys/types.h>

// The path up to and including its last slash; empty for the current folder.
std::string FolderOf(const std::string& path);

// A random path for a temporary file.
std::string NewPath(const std::string& folder);

// Creates and locks a file for reading and writing, and returns its descriptor and its path; -1, with errno,
// on failure.
int MakeNewFile(const std::string& folder, mode_t mode, std::string& path);

void RemoveLeftovers(const std::string& folder);

// Syncs the folder's entries to disk, as far as the file system supports it.
void FlushFolder(const std::string& folder);
