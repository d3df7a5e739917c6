// Whether the program can have a display, as far as can be found out without Qt.
#pragma once

#include <string>
#include <windef.h>

// The environment variables that name a display, one a line; empty if there are none.
PLATFORM_API std::string NamedDisplay();

// Whether Qt's library of widgets is loaded already: the program may then have chosen a display otherwise.
bool HasWindowLibrary();
