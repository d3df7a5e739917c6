// The program's connection to an X server.
#pragma once

#include <QLibrary>

struct xcb_connection_t;

// That of the application object; null if it has none.
xcb_connection_t* XConnection();

// A function of the xcb library; null if there is none.
template <class Function> Function XFunction(const char* name)
{
    return reinterpret_cast<Function>(QLibrary::resolve(QStringLiteral("xcb"), 1, name));
}

// Whether the connection to the server is lost, without a round trip. Qt exits at the next event after that.
bool HasLostXServer();
