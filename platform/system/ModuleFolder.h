// Where the library that this code is linked into stands.
#pragma once

// The absolute folder, without a slash at its end, found at the first call and kept; "." if it can't be told.
// Throws std::bad_alloc.
const char* ModuleFolder();
