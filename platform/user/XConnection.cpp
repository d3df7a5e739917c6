#include "XConnection.h"

#include <QGuiApplication>
#include <poll.h>
#include <qguiapplication_platform.h>

namespace
{

using ConnectionCall = int (*)(xcb_connection_t*);

} // namespace

// Other platforms than X may have the interface too, but no connection.
xcb_connection_t* XConnection()
{
    const auto* const x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 != nullptr ? x11->connection() : nullptr;
}

bool HasLostXServer()
{
    xcb_connection_t* const connection = XConnection();
    if (connection == nullptr)
        return false;
    static const auto hasError = XFunction<ConnectionCall>("xcb_connection_has_error");
    static const auto descriptorOf = XFunction<ConnectionCall>("xcb_get_file_descriptor");
    if (hasError == nullptr || descriptorOf == nullptr)
        return false;
    if (hasError(connection) != 0)
        return true;
    pollfd source{descriptorOf(connection), POLLRDHUP, 0};
    return poll(&source, 1, 0) == 1;
}
