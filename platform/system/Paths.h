// The folders that the system shares, and the paths of its drives in the native file system.
#pragma once

#include <string>
#include <string_view>
#include <windef.h>

// The prefix folder as a native path without a slash at its end; empty when the user has no folder of his
// own. Of a host whose effective user isn't the real one, the effective user's home folder alone counts.
std::string PrefixFolder();

// The native path of a path of the drives: C:\a\b is a/b in the prefix folder's drive_c, a path from the root
// is on C, and ".." stops at the root of the drive. A name that isn't there letter for letter is taken
// without regard to case, if there is one. A native absolute path passes unchanged, and a relative path stays
// relative to the current folder. Empty for an empty path, or when there is no prefix folder.
PLATFORM_API std::string NativePath(std::u16string_view path);

// The path of the drives that NativePath makes this native path of: C:\a\b for a/b in drive_c. A path that no
// drive has a name for comes back as it is, as a native absolute path names the same everywhere.
PLATFORM_API std::u16string DrivePath(const std::string& nativePath);

// Makes the folder and those above it, for their owner alone; false if it doesn't stand afterwards.
bool MakeFolder(const std::string& nativePath);
