// The JSON document of a layout file.
#pragma once

#include "LayoutContents.h"

#include <istream>
#include <ostream>

namespace atlaslayout
{

// Reads a document. Throws std::runtime_error, with line and column, for a text that is no such document:
// every field has to be there once, with a value that it can hold, and the styles have to be in the order of
// the file columns. It takes memory for the rows alone, and none for the nesting.
LayoutContents ReadDocument(std::istream& document);

// Writes a document, always in the same form.
void WriteDocument(std::ostream& document, const LayoutContents& contents);

} // namespace atlaslayout
