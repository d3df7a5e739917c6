#include "DisplayNames.h"

#include <algorithm>
#include <cstdlib>
#include <dlfcn.h>
#include <iterator>

namespace
{

constexpr const char* displayVariables[] = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
constexpr const char* windowLibrary = "libQt6Widgets.so.6";

} // namespace

bool NamesDisplay()
{
    return std::any_of(std::begin(displayVariables), std::end(displayVariables), [](const char* variable) {
        const char* const value = std::getenv(variable);
        return value != nullptr && *value != 0;
    });
}

bool HasWindowLibrary()
{
    void* const loaded = dlopen(windowLibrary, RTLD_LAZY | RTLD_NOLOAD);
    if (loaded != nullptr)
        dlclose(loaded);
    return loaded != nullptr;
}
