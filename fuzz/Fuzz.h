// What the fuzzers have in common: each tries one reader on bytes that may come from anybody.
#pragma once

#include <string_view>

namespace fuzz
{

// Each fuzzer's own: reads the bytes and requires what holds for any bytes at all.
void Try(std::string_view bytes);

// Ends the run, and names what doesn't hold.
void Require(bool holds, const char* what);

} // namespace fuzz
