// LibraryCalls.h: what the program's window asks of the style atlas beside the styles. A test puts calls of
// its own in their place.
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
