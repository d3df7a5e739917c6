// The folder of a host's layout file.
#pragma once

#include <string>
#include <string_view>

namespace atlaslayout
{

// Whether a host of this name can have a folder. The empty name can: it stands for the folder of all hosts.
bool IsHostName(std::string_view name);

// Makes the folder and those above it and returns its absolute path. The prefix folder is made for its owner
// alone. Throws std::runtime_error. The name must be a valid one.
std::string MakeHostFolder(std::string_view hostName);

} // namespace atlaslayout
