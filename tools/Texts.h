// The texts of the tool in the user's language.
#pragma once

#include <initializer_list>
#include <string>

namespace atlaslayout
{

// The translation of an English text by the language library, the text itself if there is none; %1 stands for
// the first argument, and so on. All are UTF-8.
std::string Text(const char* english, std::initializer_list<std::string> arguments = {});

// The same for the words of a style, which the sample host shows too.
std::string StyleText(const char* english, std::initializer_list<std::string> arguments);

} // namespace atlaslayout
