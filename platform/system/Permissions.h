// Who may do what with a file.
#pragma once

#include <string>

struct stat;

// Gives the open file the owner, group, permissions and access list of the old one, as far as the user may.
// Where the group or the list can't be had, the group is allowed no more than everybody is, and no user or
// group identity is lent to who runs the file. Whether owner, group and list are the old one's. Throws
// std::bad_alloc.
bool CopyPermissions(int file, const std::string& oldPath, const struct stat& old);
