// The program's connection to an X server.
#pragma once

#include <QLibrary>

struct xcb_connection_t;

// That of the application object; null where it has none.
xcb_connection_t* XConnection();

// A function of the library that the connection belongs to; null if there is no such.
template <class Function> Function XFunction(const char* name)
{
    return reinterpret_cast<Function>(QLibrary::resolve(QStringLiteral("xcb"), 1, name));
}

// Whether the server at the other end has gone away. Asks the machine alone, not the server. Qt ends a
// program as soon as it handles an event after that.
bool HasLostXServer();
