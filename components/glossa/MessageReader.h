// The messages of a compiled gettext catalogue (the MO format).
//
// Not the C library's lookup, which trusts the offsets in a file, and has no English to fall back on for a
// user whose languages have no catalogue. This reader checks every offset.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace glossa
{

// Both texts are UTF-8 and point into the bytes that were read. Plural forms are left out.
struct Message {
    std::string_view Id; // context, the character 4 and the text, or the text alone
    std::string_view Text;
};

// Reads the contents of a catalogue file, of either byte order, without the message that describes the file.
// Empty if it is damaged or its character set isn't UTF-8. Throws std::bad_alloc.
std::optional<std::vector<Message>> ReadMessages(std::string_view bytes);

} // namespace glossa
