// Writes a layout file by the writer of the style atlas, row by row.
#pragma once

#include "LayoutContents.h"

namespace atlaslayout
{

// Writes a file as safely as the library does: the old one stands until the new one is on disk, and is kept
// as PATH~. Throws std::runtime_error with a printable reason.
void SaveLayout(const char* path, const LayoutContents& contents);

// Writes to standard output.
void PrintLayout(const LayoutContents& contents);

} // namespace atlaslayout
