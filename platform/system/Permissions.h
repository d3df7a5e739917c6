// File permissions.
#pragma once

#include <string>

struct stat;

// Copies owner, group, permissions and access list of the old file to the open one, as far as the user may.
// Without the old group or list, the group gets no more rights than others; without the old owner, set-id
// bits are dropped. True if owner, group and list were copied. Throws std::bad_alloc.
bool CopyPermissions(int file, const std::string& oldPath, const struct stat& old);
