// Where the library that this code is linked into stands.
#pragma once

#include <string>

// The absolute folder, without a slash at its end, found at the first call; "." if it can't be told. Throws
// std::bad_alloc.
const std::string& ModuleFolder();
