// The messages of a compiled gettext catalogue (the MO format).
//
// The C library's own lookup trusts a catalogue: an offset that points outside the file ends the program. It
// also takes no other language than LANGUAGE names, so English names would be lost to a user whose language
// has no catalogue. Hence a reader of our own, which checks every offset.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace glossa
{

// Both texts are UTF-8 and point into the bytes that were read. Of a message with a plural they are the
// singular.
struct Message {
    std::string_view Id; // context, the character 4, and the text; or the text alone
    std::string_view Text;
};

// Reads the contents of a catalogue file, in either byte order, without the message that only describes the
// file. Gives nothing where they are damaged, or in another character set than UTF-8. Throws std::bad_alloc.
std::optional<std::vector<Message>> ReadMessages(std::string_view bytes);

} // namespace glossa
