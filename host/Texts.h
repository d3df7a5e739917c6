// The texts of the program in the user's language.
#pragma once

#include <initializer_list>
#include <string>

namespace atlashost
{

// The translation of an English text by the language library, the text itself if there is none; %1 stands for
// the first argument, and so on. All are UTF-8.
std::string Text(const char* english, std::initializer_list<std::string> arguments = {});

} // namespace atlashost
