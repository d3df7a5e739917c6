// The functions that take a window's handle.
#include "Capture.h"
#include "WindowSide.h"

#include <QtConvert.h>
#include <algorithm>
#include <vector>
#include <winmsg.h>

namespace
{

// Where the top left corner of a widget is on the screen.
QPoint OriginOf(const QWidget& widget)
{
    return widget.mapToGlobal(QPoint(0, 0));
}

QRect PartOf(QWidget& widget, LPCRECT rectangle)
{
    if (rectangle == nullptr)
        return widget.rect();
    return {rectangle->left, rectangle->top, rectangle->right - rectangle->left,
            rectangle->bottom - rectangle->top};
}

} // namespace

LRESULT SendMessageW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    WindowSide* const window = WindowSide::Of(handle);
    return window != nullptr ? window->Send(message, wParam, lParam) : 0;
}

DWORD GetMessagePos()
{
    const QPoint position = MessagePosition();
    return static_cast<DWORD>(MAKELPARAM(position.x(), position.y()));
}

BOOL IsWindow(HWND handle)
{
    return WindowSide::Of(handle) != nullptr ? TRUE : FALSE;
}

LONG GetWindowLongW(HWND handle, int index)
{
    const WindowSide* const window = WindowSide::Of(handle);
    return window != nullptr && index == GWL_ID ? window->Id : 0;
}

BOOL GetWindowRect(HWND handle, LPRECT rectangle)
{
    WindowSide* const window = WindowSide::Of(handle);
    if (window == nullptr)
        return FALSE;
    const QPoint origin = OriginOf(window->Widget());
    *rectangle = {origin.x(), origin.y(), origin.x() + window->Widget().width(),
                  origin.y() + window->Widget().height()};
    return TRUE;
}

BOOL GetClientRect(HWND handle, LPRECT rectangle)
{
    WindowSide* const window = WindowSide::Of(handle);
    if (window == nullptr)
        return FALSE;
    *rectangle = {0, 0, window->Client().width(), window->Client().height()};
    return TRUE;
}

BOOL ScreenToClient(HWND handle, LPPOINT point)
{
    WindowSide* const window = WindowSide::Of(handle);
    if (window == nullptr)
        return FALSE;
    const QPoint origin = OriginOf(window->Client());
    *point = {point->x - origin.x(), point->y - origin.y()};
    return TRUE;
}

BOOL ClientToScreen(HWND handle, LPPOINT point)
{
    WindowSide* const window = WindowSide::Of(handle);
    if (window == nullptr)
        return FALSE;
    const QPoint origin = OriginOf(window->Client());
    *point = {point->x + origin.x(), point->y + origin.y()};
    return TRUE;
}

HWND GetParent(HWND handle)
{
    WindowSide* const window = WindowSide::Of(handle);
    WindowSide* const parent = window != nullptr ? window->Parent() : nullptr;
    return parent != nullptr ? parent->Handle() : nullptr;
}

HWND GetDlgItem(HWND handle, int id)
{
    WindowSide* const window = WindowSide::Of(handle);
    if (window == nullptr)
        return nullptr;
    for (QObject* const child : window->Widget().children()) {
        WindowSide* const inside = WindowSide::Of(qobject_cast<QWidget*>(child));
        if (inside != nullptr && inside->Id == id)
            return inside->Handle();
    }
    return nullptr;
}

int GetWindowTextW(HWND handle, LPWSTR text, int count)
{
    const WindowSide* const window = WindowSide::Of(handle);
    if (text == nullptr || count <= 0)
        return 0;
    const QString whole = window != nullptr ? window->Text() : QString();
    const auto length = std::min<qsizetype>(whole.size(), count - 1);
    std::copy_n(reinterpret_cast<LPCWSTR>(whole.utf16()), length, text);
    text[length] = 0;
    return static_cast<int>(length);
}

BOOL SetWindowTextW(HWND handle, LPCWSTR text)
{
    WindowSide* const window = WindowSide::Of(handle);
    if (window == nullptr)
        return FALSE;
    window->SetText(text != nullptr ? gdi::ToQString(text) : QString());
    return TRUE;
}

BOOL EnumChildWindows(HWND handle, WNDENUMPROC callback, LPARAM argument)
{
    WindowSide* const window = WindowSide::Of(handle);
    if (window == nullptr)
        return FALSE;
    std::vector<HWND> inside;
    for (QWidget* const widget : window->Widget().findChildren<QWidget*>()) {
        WindowSide* const child = WindowSide::Of(widget);
        if (child != nullptr && !widget->isWindow())
            inside.push_back(child->Handle());
    }
    const bool isComplete = std::ranges::all_of(inside, [&](HWND child) {
        return WindowSide::Of(child) == nullptr || callback(child, argument) != FALSE;
    });
    return isComplete ? TRUE : FALSE;
}

BOOL InvalidateRect(HWND handle, LPCRECT rectangle, BOOL erase)
{
    return RedrawWindow(handle, rectangle, nullptr, RDW_INVALIDATE | (erase != FALSE ? RDW_ERASE : 0));
}

BOOL RedrawWindow(HWND handle, LPCRECT rectangle, HANDLE /*region*/, UINT flags)
{
    WindowSide* const window = WindowSide::Of(handle);
    if (window == nullptr)
        return FALSE;
    if ((flags & RDW_INVALIDATE) != 0)
        window->Invalidate(PartOf(window->Client(), rectangle), (flags & RDW_ERASE) != 0);
    if ((flags & RDW_UPDATENOW) != 0)
        window->UpdateNow();
    return TRUE;
}

BOOL UpdateWindow(HWND handle)
{
    return RedrawWindow(handle, nullptr, nullptr, RDW_UPDATENOW);
}

HDC GetWindowDC(HWND handle)
{
    WindowSide* const window = WindowSide::Of(handle);
    return window != nullptr ? window->GetContext() : nullptr;
}

int ReleaseDC(HWND handle, HDC context)
{
    if (WindowSide* const window = WindowSide::Of(handle))
        window->ReleaseContext(context);
    else
        DeleteDC(context);
    return context != nullptr ? 1 : 0;
}
