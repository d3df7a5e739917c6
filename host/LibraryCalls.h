// The calls of the style atlas by the program's window, which a test can replace.
#pragma once

#include "styleatlas.h"

#include <cstdint>

namespace atlashost
{

struct LibraryCalls {
    int (*edit)(std::uintptr_t parentWindow) = EditStyleAtlas;
    void (*reload)() = ReloadStyleAtlas;
    void (*changeUser)(const char16_t* userRoot, const char16_t* subKey) = StyleAtlasChangeUserInfo;
};

} // namespace atlashost
