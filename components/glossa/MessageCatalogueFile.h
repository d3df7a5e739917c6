// The catalogue files: where they are, and their contents.
#pragma once

#include <string>

namespace glossa
{

struct MessageCatalogueFile {
    std::string Path;
    std::string Bytes; // empty if the file is missing or unusable
};

// Reads <locale folder>/<language>/LC_MESSAGES/glossa.mo; language is one path part. An unusable file is
// reported. Throws std::bad_alloc.
MessageCatalogueFile ReadMessageCatalogueFile(const std::string& language);

// Reports on standard error that a file is left out, and why. Throws std::bad_alloc.
void ReportUnusable(const std::string& path, const char* reason);

} // namespace glossa
