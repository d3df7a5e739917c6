// The languages that the environment selects.
#pragma once

#include <string>
#include <string_view>
#include <vector>
#include <windef.h>

// The language of the texts in the sources.
constexpr std::string_view englishLanguage = "en";

// The names of the catalogue folders, best first, without English, which always comes last. The locale is the
// first of LC_ALL, LC_MESSAGES and LANG that is set; unless it is "C", the list in LANGUAGE replaces it. The
// list ends at English and at "C", as the texts are English, and after eight languages. Each language yields
// its variants from special to general: "de_CH@x", "de@x", "de_CH", "de" for "de_CH.UTF-8@x". Every name is
// one path part. Throws std::bad_alloc.
PLATFORM_API std::vector<std::string> UserLanguages();
