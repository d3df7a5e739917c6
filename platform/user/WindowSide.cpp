#include "WindowSide.h"

#include "Capture.h"
#include "CommandFailure.h"
#include "Contain.h"

#include <DeviceContext.h>
#include <QCoreApplication>
#include <QResizeEvent>
#include <QtConvert.h>
#include <afxwin.h>
#include <unordered_set>

namespace
{

// Made on first use and never destroyed: widgets can outlive every static object.
std::unordered_set<const WindowSide*>& LiveWindows()
{
    static auto* const windows = new std::unordered_set<const WindowSide*>;
    return *windows;
}

} // namespace

WindowSide::WindowSide(QWidget& widget) : m_widget(widget)
{
    LiveWindows().insert(this);
}

WindowSide::~WindowSide()
{
    LiveWindows().erase(this);
}

WindowSide* WindowSide::Of(HWND handle)
{
    auto* const window = reinterpret_cast<WindowSide*>(handle);
    return LiveWindows().contains(window) ? window : nullptr;
}

WindowSide* WindowSide::Of(const QWidget* widget)
{
    auto* const window = dynamic_cast<const WindowSide*>(widget);
    return window != nullptr && LiveWindows().contains(window) ? const_cast<WindowSide*>(window) : nullptr;
}

WindowSide* WindowSide::Parent()
{
    return Of(m_widget.parentWidget());
}

LRESULT WindowSide::SendContained(UINT message, WPARAM wParam, LPARAM lParam, LRESULT failure) noexcept
{
    LRESULT result = failure;
    Contain([&] {
        try {
            result = Send(message, wParam, lParam);
        } catch (const CException* e) {
            if (message == WM_COMMAND) // the user waits for something to happen
                TellCommandFailure(*e);
            throw;
        }
    });
    return result;
}

void WindowSide::Notify(UINT code)
{
    if (WindowSide* const parent = Parent())
        parent->SendContained(WM_COMMAND, MAKEWPARAM(static_cast<UINT>(Id), code),
                              reinterpret_cast<LPARAM>(Handle()));
}

LRESULT WindowSide::Notify(NMHDR& header, int code)
{
    header = {Handle(), static_cast<UINT_PTR>(Id), static_cast<UINT>(code)};
    WindowSide* const parent = Parent();
    return parent != nullptr
               ? parent->SendContained(WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header))
               : 0;
}

void WindowSide::Place(const QRect& rectangle)
{
    m_widget.setGeometry(rectangle);
    SendPendingSize();
}

// Qt tells a widget of its size when it is shown.
void WindowSide::SendPendingSize()
{
    if (!m_widget.testAttribute(Qt::WA_PendingResizeEvent))
        return;
    m_widget.setAttribute(Qt::WA_PendingResizeEvent, false);
    QResizeEvent event(m_widget.size(), QSize());
    QCoreApplication::sendEvent(&m_widget, &event);
}

void WindowSide::Destroy()
{
    if (m_isGone)
        return;
    SendLastMessages();
    m_widget.hide();
    m_widget.deleteLater();
}

// The window hears that it goes, then the windows in it; then, from the inside out, that they are gone. No
// handler can keep it, not by an exception either.
void WindowSide::SendLastMessages()
{
    if (m_isGone)
        return;
    ReleaseCaptureOf(*this);
    SendContained(WM_DESTROY);
    for (QObject* const child : m_widget.children()) {
        if (WindowSide* const window = Of(qobject_cast<QWidget*>(child)))
            window->SendLastMessages();
    }
    SendContained(WM_NCDESTROY);
    m_isGone = true;
    Attached = nullptr;
    LiveWindows().erase(this);
}

QString WindowSide::Text() const
{
    return m_widget.windowTitle();
}

void WindowSide::SetText(const QString& text)
{
    m_widget.setWindowTitle(text);
}

LRESULT WindowSide::OnDefault(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_PAINT:
        if (wParam != 0)
            PaintInto(reinterpret_cast<HDC>(wParam));
        else if (IsDrawnByMessage())
            EndPaint(BeginPaint());
        return 0;
    case WM_ERASEBKGND:
        if (Background == 0)
            return 0;
        if (const auto* const dc = gdi::DeviceContext::FromHandle(reinterpret_cast<HDC>(wParam)))
            dc->Drawing.FillBox({0, 0, Client().width(), Client().height()},
                                gdi::ToPixel(GetSysColor(Background - 1)));
        return 1;
    case WM_CLOSE:
        Destroy();
        return 0;
    case WM_CONTEXTMENU:
        if (WindowSide* const parent = m_widget.isWindow() ? nullptr : Parent())
            return parent->Send(message, wParam, lParam);
        return 0;
    case WM_SETFONT:
        Font = reinterpret_cast<HFONT>(wParam);
        m_widget.setFont(Font != nullptr ? gdi::ToQFont(Font) : QFont());
        Client().update();
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(Font);
    default:
        return 0;
    }
}
