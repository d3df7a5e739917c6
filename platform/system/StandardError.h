// Standard error, as a library may use it: it is the host's.
#pragma once

#include <string_view>

// Writes a line, its end included, in one piece. A reader that is gone doesn't end the host, and one that doesn't read
// holds it up for a second at most; the line is lost then.
void WriteToStandardError(std::string_view line) noexcept;
