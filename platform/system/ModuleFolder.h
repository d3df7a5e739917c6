// The folder of the library that this code is linked into.
#pragma once

// Absolute, without a slash at its end, and determined at the first call; "." if that fails. Throws
// std::bad_alloc.
const char* ModuleFolder();
