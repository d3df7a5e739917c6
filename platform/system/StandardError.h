// Standard error, as a library may use it: it is the host's.
#pragma once

#include <string_view>

// Writes a line, its end included: in one piece, unless it is longer than a pipe takes at once. A reader that
// is gone doesn't end the host, and one that reads nothing for a second loses the rest of the line.
void WriteToStandardError(std::string_view line) noexcept;
