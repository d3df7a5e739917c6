// Whether a program can have a display at all, as far as that can be told without Qt.
#pragma once

#include <string>
#include <windef.h>

// What the environment says of the display; empty where it names none.
PLATFORM_API std::string NamedDisplay();

// Whether the library of windows is in the program already: then it may have named a display otherwise.
bool HasWindowLibrary();
