// A file as one string.
#pragma once

#include <cstddef>
#include <string>

// Reads the whole of an ordinary file into bytes, and gives null; else what hinders, as a text that stays,
// and bytes hold what was read. Anything but an ordinary file is refused, and so is one of more than
// mostBytes. errno tells why a file can't be opened. Throws std::bad_alloc.
const char* ReadWholeFile(const std::string& nativePath, std::size_t mostBytes, std::string& bytes);
