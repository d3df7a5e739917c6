// SettingsFolder.h: the folder in which the style atlas keeps the layout of a host. An installer makes it
// once; this program has none, and so makes it at each start.
#pragma once

#include <filesystem>
#include <string_view>

namespace atlashost
{

// True for a name that can be the name of a folder, in the style atlas's own terms. The empty name is one: it
// stands for the folder above.
bool IsHostName(std::string_view name);

// Where the layout of the host is kept: <prefix>/drive_c/ProgramData/Halvorn/<host name>, with the prefix
// that styleatlas.h tells. The host's name is a valid one.
std::filesystem::path SettingsFolder(std::string_view hostName);

// Makes the folder and those above it, where they are missing; the prefix for the user alone, as the style
// atlas makes it. Throws std::filesystem::filesystem_error.
void CreateSettingsFolder(std::string_view hostName);

} // namespace atlashost
