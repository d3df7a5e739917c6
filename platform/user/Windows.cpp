// The functions that take the handle of a window.
#include "Capture.h"
#include "Window.h"

#include <QtConvert.h>
#include <TextCopy.h>
#include <algorithm>
#include <vector>
#include <winwnd.h>

namespace
{

// In screen coordinates.
QPoint OriginOf(const QWidget& widget)
{
    return widget.mapToGlobal(QPoint(0, 0));
}

} // namespace

LRESULT SendMessageW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    Window* const window = Window::Of(handle);
    return window != nullptr ? window->Send(message, wParam, lParam) : 0;
}

DWORD GetMessagePos()
{
    return static_cast<DWORD>(gdi::ToLParam(MessagePosition()));
}

BOOL IsWindow(HWND handle)
{
    return Window::Of(handle) != nullptr ? TRUE : FALSE;
}

LONG GetWindowLongW(HWND handle, int index)
{
    const Window* const window = Window::Of(handle);
    return window != nullptr && index == GWL_ID ? window->Id : 0;
}

BOOL GetWindowRect(HWND handle, LPRECT rectangle)
{
    Window* const window = Window::Of(handle);
    if (window == nullptr)
        return FALSE;
    *rectangle = gdi::ToRect(QRect(OriginOf(window->Widget()), window->Widget().size()));
    return TRUE;
}

BOOL GetClientRect(HWND handle, LPRECT rectangle)
{
    Window* const window = Window::Of(handle);
    if (window == nullptr)
        return FALSE;
    *rectangle = gdi::ToRect(window->Client().rect());
    return TRUE;
}

BOOL ScreenToClient(HWND handle, LPPOINT point)
{
    Window* const window = Window::Of(handle);
    if (window == nullptr)
        return FALSE;
    *point = gdi::ToPoint(gdi::ToQPoint(*point) - OriginOf(window->Client()));
    return TRUE;
}

HWND GetParent(HWND handle)
{
    Window* const window = Window::Of(handle);
    Window* const parent = window != nullptr ? window->Parent() : nullptr;
    return parent != nullptr ? parent->Handle() : nullptr;
}

HWND GetDlgItem(HWND handle, int id)
{
    Window* const window = Window::Of(handle);
    if (window == nullptr)
        return nullptr;
    for (QObject* const child : window->Widget().children()) {
        Window* const inside = Window::Of(qobject_cast<QWidget*>(child));
        if (inside != nullptr && inside->Id == id)
            return inside->Handle();
    }
    return nullptr;
}

int GetWindowTextW(HWND handle, LPWSTR text, int count)
{
    const Window* const window = Window::Of(handle);
    if (text == nullptr || count <= 0)
        return 0;
    const QString whole = window != nullptr ? window->Text() : QString();
    return static_cast<int>(CopyText(gdi::ToView(whole), text, static_cast<std::size_t>(count)));
}

BOOL SetWindowTextW(HWND handle, LPCWSTR text)
{
    Window* const window = Window::Of(handle);
    if (window == nullptr)
        return FALSE;
    window->SetText(gdi::ToQString(text));
    return TRUE;
}

BOOL EnumChildWindows(HWND handle, WNDENUMPROC callback, LPARAM argument)
{
    Window* const window = Window::Of(handle);
    if (window == nullptr)
        return FALSE;
    std::vector<HWND> inside;
    for (QWidget* const widget : window->Widget().findChildren<QWidget*>()) {
        Window* const child = Window::Of(widget);
        if (child != nullptr && !widget->isWindow())
            inside.push_back(child->Handle());
    }
    const bool isComplete = std::ranges::all_of(inside, [&](HWND child) {
        return Window::Of(child) == nullptr || callback(child, argument) != FALSE;
    });
    return isComplete ? TRUE : FALSE;
}

BOOL InvalidateRect(HWND handle, LPCRECT rectangle, BOOL erase)
{
    return RedrawWindow(handle, rectangle, nullptr, RDW_INVALIDATE | (erase != FALSE ? RDW_ERASE : 0));
}

BOOL RedrawWindow(HWND handle, LPCRECT rectangle, HANDLE /*region*/, UINT flags)
{
    Window* const window = Window::Of(handle);
    if (window == nullptr)
        return FALSE;
    if ((flags & RDW_INVALIDATE) != 0)
        window->Surface().Invalidate(rectangle != nullptr ? gdi::ToQRect(*rectangle)
                                                          : window->Client().rect(),
                                     (flags & RDW_ERASE) != 0);
    if ((flags & RDW_UPDATENOW) != 0)
        window->Surface().UpdateNow();
    return TRUE;
}

BOOL UpdateWindow(HWND handle)
{
    return RedrawWindow(handle, nullptr, nullptr, RDW_UPDATENOW);
}

HDC GetWindowDC(HWND handle)
{
    Window* const window = Window::Of(handle);
    return window != nullptr ? window->Surface().GetContext() : nullptr;
}

int ReleaseDC(HWND handle, HDC context)
{
    DeleteDC(context);
    if (Window* const window = Window::Of(handle))
        window->Surface().ShowDrawing();
    return context != nullptr ? 1 : 0;
}
