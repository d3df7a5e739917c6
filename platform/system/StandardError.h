// Standard error, which belongs to the host.
#pragma once

#include <string_view>

// Writes a line, passed with its end, atomically up to the size of PIPE_BUF. A broken pipe raises no signal;
// if the reader stalls for a second, the rest of the line is dropped.
void WriteToStandardError(std::string_view line) noexcept;
