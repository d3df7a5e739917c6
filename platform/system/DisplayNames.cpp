#include "DisplayNames.h"

#include <cstdlib>
#include <dlfcn.h>
#include <memory>

namespace
{

constexpr const char* displayVariables[] = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
constexpr const char* windowLibrary = "libQt6Widgets.so.6";

} // namespace

std::string NamedDisplay()
{
    std::string named;
    for (const char* const variable : displayVariables) {
        const char* const value = std::getenv(variable);
        if (value != nullptr && *value != 0)
            named.append(variable).append(1, '=').append(value).append(1, '\n');
    }
    return named;
}

bool HasWindowLibrary()
{
    const std::unique_ptr<void, int (*)(void*)> loaded(dlopen(windowLibrary, RTLD_LAZY | RTLD_NOLOAD),
                                                       dlclose);
    return loaded != nullptr;
}
