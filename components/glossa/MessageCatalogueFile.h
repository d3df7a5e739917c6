// Where the catalogue files stand, and their contents.
#pragma once

#include <string>

namespace glossa
{

struct MessageCatalogueFile {
    std::string Path;
    std::string Bytes; // empty where there is no such file, or none that can be used
};

// Reads <locale folder>/<language>/LC_MESSAGES/glossa.mo. A file that stands there and cannot be used is
// told. language is one path part. Throws std::exception where there is no memory.
MessageCatalogueFile ReadMessageCatalogueFile(const std::string& language);

// Says on standard error that a file is left out, and why. Throws std::exception where there is no memory.
void TellUnusable(const std::string& path, const char* reason);

} // namespace glossa
