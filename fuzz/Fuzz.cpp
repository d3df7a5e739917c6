#include "Fuzz.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

void fuzz::Require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

// The entry point for libFuzzer, which must be visible to the linker.
extern "C" [[gnu::visibility("default")]] int LLVMFuzzerTestOneInput(const std::uint8_t* data,
                                                                     std::size_t size)
{
    fuzz::Try({reinterpret_cast<const char*>(data), size});
    return 0;
}
