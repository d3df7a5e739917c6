// The prefix folder, and the mapping between drive paths and native paths.
#pragma once

#include <string>
#include <string_view>
#include <windef.h>

// The prefix folder as a native path without a slash at its end; empty if the user has no home folder. If the
// effective user isn't the real one, the environment is ignored.
std::string PrefixFolder();

// Maps a drive path to its native path: C:\a\b is a/b in the prefix folder's drive_c, a path from the root is
// on C, and ".." stops at the root of the drive. A name without an exact match matches one that differs in
// case. Native absolute paths are returned unchanged; relative paths stay relative to the current folder.
// Empty for an empty path, or without a prefix folder.
PLATFORM_API std::string NativePath(std::u16string_view path);

// The inverse of NativePath: C:\a\b for a/b in drive_c. A path that is on no drive is returned unchanged, as
// NativePath accepts it too.
PLATFORM_API std::u16string DrivePath(const std::string& nativePath);

// Creates the folder and its parents, accessible to their owner alone; false if it doesn't exist afterwards.
bool MakeFolder(const std::string& nativePath);
