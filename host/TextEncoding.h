// The encodings of text files.
#pragma once

#include <string>

namespace atlashost
{

// The content of a file in UTF-8 without a byte order mark. The mark tells UTF-16; other content that is not
// valid UTF-8 is taken for Windows-1252, which includes Latin-1. Throws std::runtime_error with a printable
// reason for content with null bytes, which no text has.
std::string TextOf(std::string content);

} // namespace atlashost
