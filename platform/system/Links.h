// Symbolic links.
#pragma once

#include <string>

// The path without symbolic links of what a native path names, whether that exists or not. Empty, with errno,
// for a chain of links that has no end, and where somebody else may have laid a link: in a sticky folder that
// others can write, one of the user's own or of the folder's owner is followed, and no other. Throws
// std::bad_alloc.
std::string FollowLinks(const std::string& path);
