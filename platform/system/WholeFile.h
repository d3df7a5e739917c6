// Reads files as a whole.
#pragma once

#include <cstddef>
#include <string>

// Reads a regular file into bytes and returns null; on failure returns the reason, a static text, and bytes
// hold what was read so far. Files of more than maxBytes are refused, and so is what is no regular file.
// errno is set if the file can't be opened. Throws std::bad_alloc.
const char* ReadWholeFile(const std::string& nativePath, std::size_t maxBytes, std::string& bytes);
