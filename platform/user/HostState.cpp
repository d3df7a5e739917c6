#include "HostState.h"

#include <QCoreApplication>
#include <clocale>
#include <dlfcn.h>

namespace
{

constexpr const char* plainLocale = "C";

bool isMakingOurs = false;

// The locale that Qt has set, until the host gets it.
std::string& OwedLocale()
{
    static auto& locale = *new std::string;
    return locale;
}

// Qt runs it with each application object.
void PayLocale()
{
    if (isMakingOurs || OwedLocale().empty())
        return;
    std::setlocale(LC_ALL, OwedLocale().c_str());
    OwedLocale().clear();
}

constexpr const char* xLibrary = "libX11.so.6";
constexpr const char* handlerSetters[] = {"XSetErrorHandler", "XSetIOErrorHandler"};

using XHandler = int (*)();
XHandler keptHandlers[std::size(handlerSetters)];

// Sets the handlers, if the program has the library of X, and keeps those of before in their place.
void SwapXHandlers()
{
    void* const library = dlopen(xLibrary, RTLD_LAZY | RTLD_NOLOAD);
    if (library == nullptr)
        return;
    for (std::size_t i = 0; i < std::size(handlerSetters); ++i) {
        const auto set = reinterpret_cast<XHandler (*)(XHandler)>(dlsym(library, handlerSetters[i]));
        keptHandlers[i] = set(keptHandlers[i]);
    }
    dlclose(library);
}

} // namespace

// Qt never leaves this locale, as it wants one with UTF-8: one that is there afterwards has not been set.
HostLocale::HostLocale() : m_before(std::setlocale(LC_ALL, nullptr))
{
    std::setlocale(LC_ALL, plainLocale);
    isMakingOurs = true;
}

HostLocale::~HostLocale()
{
    const std::string after = std::setlocale(LC_ALL, nullptr);
    if (after != plainLocale) {
        OwedLocale() = after;
        qAddPreRoutine(&PayLocale);
    }
    std::setlocale(LC_ALL, m_before.c_str());
    isMakingOurs = false;
}

void KeepXHandlers()
{
    for (XHandler& handler : keptHandlers)
        handler = nullptr; // stands for the library's own
    SwapXHandlers();
}

void RestoreXHandlers()
{
    SwapXHandlers();
}
