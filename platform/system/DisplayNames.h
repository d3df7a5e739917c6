// Whether a program can have a display at all, as far as that can be told without Qt.
#pragma once

#include <windef.h>

// Whether the environment names a display.
PLATFORM_API bool NamesDisplay();

// Whether the library of windows is in the program already: then it may have named a display otherwise.
bool HasWindowLibrary();
