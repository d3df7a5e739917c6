// The languages that the user's environment asks for.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace glossa
{

// The language of the texts themselves.
constexpr std::string_view englishLanguage = "en";

// The names of catalogue folders to look in, best first, without English itself, which stands behind all of
// them. The first of LC_ALL, LC_MESSAGES and LANG that is set is the user's locale; with one other than "C"
// the list in LANGUAGE goes before it. A language in it ends the list if it is English or no language ("C"),
// for the texts are English; past the eighth none counts. Each gives its special forms before the general
// one: "de_CH.UTF-8@x" gives "de_CH@x", "de@x", "de_CH" and "de". Every name is one path part. Throws
// std::bad_alloc.
std::vector<std::string> UserLanguages();

} // namespace glossa
