// Shared by the fuzzers, each of which tries one reader on untrusted bytes.
#pragma once

#include <string_view>

namespace fuzz
{

// Defined by each fuzzer: reads the bytes and requires the invariants that hold for any input.
void Try(std::string_view bytes);

// Aborts the run with a message unless the condition holds.
void Require(bool holds, const char* what);

} // namespace fuzz
