#include "HostState.h"

#include <QCoreApplication>
#include <clocale>
#include <dlfcn.h>
#include <memory>
#include <utility>

namespace
{

constexpr const char* plainLocale = "C";

bool isCreatingOurs = false;

// The locale that Qt has set, until the host's application object needs it.
std::string& PendingLocale()
{
    static auto& locale = *new std::string;
    return locale;
}

// Qt calls it for each application object.
void SetPendingLocale()
{
    if (isCreatingOurs || PendingLocale().empty())
        return;
    std::setlocale(LC_ALL, std::exchange(PendingLocale(), {}).c_str());
}

constexpr const char* xLibrary = "libX11.so.6";
constexpr const char* handlerSetters[] = {"XSetErrorHandler", "XSetIOErrorHandler"};

using XHandler = int (*)();
XHandler savedHandlers[std::size(handlerSetters)];

// Exchanges the handlers with the saved ones, if the program has loaded the X library.
void SwapXHandlers()
{
    const std::unique_ptr<void, int (*)(void*)> library(dlopen(xLibrary, RTLD_LAZY | RTLD_NOLOAD), &dlclose);
    if (library == nullptr)
        return;
    for (std::size_t i = 0; i < std::size(handlerSetters); ++i) {
        const auto set = reinterpret_cast<XHandler (*)(XHandler)>(dlsym(library.get(), handlerSetters[i]));
        savedHandlers[i] = set(savedHandlers[i]);
    }
}

} // namespace

// Qt always replaces this locale, which isn't UTF-8, also where the host has set the environment's already.
// If it is still set afterwards, Qt hasn't set any.
HostLocale::HostLocale() : m_before(std::setlocale(LC_ALL, nullptr))
{
    std::setlocale(LC_ALL, plainLocale);
    isCreatingOurs = true;
}

HostLocale::~HostLocale()
{
    const std::string after = std::setlocale(LC_ALL, nullptr);
    if (after != plainLocale) {
        PendingLocale() = after;
        qAddPreRoutine(&SetPendingLocale);
    }
    std::setlocale(LC_ALL, m_before.c_str());
    isCreatingOurs = false;
}

void KeepXHandlers()
{
    for (XHandler& handler : savedHandlers)
        handler = nullptr; // the library's default
    SwapXHandlers();
}

void RestoreXHandlers()
{
    SwapXHandlers();
}
