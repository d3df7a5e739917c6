// Symbolic links.
#pragma once

#include <string>

// Resolves the symbolic links in a native path, whose target need not exist. In a sticky folder that others
// can write, only links of the user and of the folder's owner are followed. Empty, with errno, on a link that
// isn't followed and on a chain of links without end. Throws std::bad_alloc.
std::string FollowLinks(const std::string& path);
