#include "Window.h"

#include "Accessibility.h"
#include "Capture.h"
#include "CommandFailure.h"
#include "Contain.h"
#include "PopupPlace.h"

#include <DeviceContext.h>
#include <QCoreApplication>
#include <QResizeEvent>
#include <QtConvert.h>
#include <afxwin.h>
#include <unordered_set>
#include <utility>

namespace
{

thread_local MSG currentMessage{};

// Makes a message the current one during its lifetime.
class CurrentMessageScope
{
public:
    explicit CurrentMessageScope(const MSG& message) : m_before(std::exchange(currentMessage, message)) {}
    CurrentMessageScope(const CurrentMessageScope&) = delete;
    CurrentMessageScope& operator=(const CurrentMessageScope&) = delete;
    ~CurrentMessageScope() { currentMessage = m_before; }

private:
    MSG m_before;
};

// Created on first use and never destroyed: widgets can outlive every static object.
std::unordered_set<const Window*>& LiveWindows()
{
    static auto* const windows = new std::unordered_set<const Window*>;
    return *windows;
}

// Programs send many messages in a row to one window.
const Window* lastFound = nullptr;

} // namespace

Window::Window(QWidget& widget) : m_widget(widget)
{
    LiveWindows().insert(this);
    accessible::Renew(*this); // Qt may have made one while it was just a widget
}

void Window::Forget()
{
    LiveWindows().erase(this);
    if (lastFound == this)
        lastFound = nullptr;
}

Window* Window::Of(HWND handle)
{
    auto* const window = reinterpret_cast<Window*>(handle);
    if (window == nullptr || window == lastFound)
        return window;
    if (!LiveWindows().contains(window))
        return nullptr;
    lastFound = window;
    return window;
}

Window* Window::Of(const QWidget* widget)
{
    auto* const window = dynamic_cast<const Window*>(widget);
    return window != nullptr && LiveWindows().contains(window) ? const_cast<Window*>(window) : nullptr;
}

bool Window::IsGone() const
{
    return this != lastFound && !LiveWindows().contains(this);
}

Window* Window::Parent()
{
    return Of(m_widget.parentWidget());
}

LRESULT Window::Send(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (IsGone())
        return 0;
    if (Attached == nullptr)
        return Default(message, wParam, lParam);
    const CurrentMessageScope current(
        {Handle(), message, wParam, lParam, 0, gdi::ToPoint(MessagePosition())});
    return Attached->WindowProc(message, wParam, lParam);
}

LRESULT Window::SendContained(UINT message, WPARAM wParam, LPARAM lParam, LRESULT failure) noexcept
{
    LRESULT result = failure;
    Contain([&] {
        try {
            result = Send(message, wParam, lParam);
        } catch (const CException* e) {
            if (message == WM_COMMAND) // the user waits for something to happen
                ReportCommandFailure(*e);
            throw;
        }
    });
    return result;
}

LRESULT Window::Default(UINT message, WPARAM wParam, LPARAM lParam)
{
    return m_events.PassToQt(message, wParam) ? 0 : OnDefault(message, wParam, lParam);
}

const MSG& Window::CurrentMessage()
{
    return currentMessage;
}

void Window::Notify(UINT code)
{
    if (Window* const parent = Parent())
        parent->SendContained(WM_COMMAND, MAKEWPARAM(static_cast<UINT>(Id), code),
                              reinterpret_cast<LPARAM>(Handle()));
}

LRESULT Window::Notify(NMHDR& header, int code)
{
    header = {Handle(), static_cast<UINT_PTR>(Id), static_cast<UINT>(code)};
    Window* const parent = Parent();
    return parent != nullptr
               ? parent->SendContained(WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header))
               : 0;
}

void Window::Place(const QRect& rectangle)
{
    m_widget.setGeometry(IsPopup() ? OnScreenOf(*m_widget.parentWidget(), rectangle) : rectangle);
    SendPendingSize();
}

// Qt postpones the resize event of a hidden widget until it is shown.
void Window::SendPendingSize()
{
    if (!m_widget.testAttribute(Qt::WA_PendingResizeEvent))
        return;
    m_widget.setAttribute(Qt::WA_PendingResizeEvent, false);
    QResizeEvent event(m_widget.size(), QSize());
    QCoreApplication::sendEvent(&m_widget, &event);
}

void Window::Destroy()
{
    if (IsGone())
        return;
    SendLastMessages();
    m_widget.hide();
    m_widget.deleteLater();
}

// WM_DESTROY goes to the window first, then to those inside; WM_NCDESTROY goes from the inside out. No
// handler can prevent it, nor can an exception.
void Window::SendLastMessages()
{
    if (IsGone())
        return;
    ReleaseCaptureOf(*this);
    SendContained(WM_DESTROY);
    for (QObject* const child : m_widget.children()) {
        if (Window* const window = Of(qobject_cast<QWidget*>(child)))
            window->SendLastMessages();
    }
    SendContained(WM_NCDESTROY);
    Attached = nullptr;
    Forget();
}

QString Window::Text() const
{
    return m_widget.windowTitle();
}

void Window::SetText(const QString& text)
{
    m_widget.setWindowTitle(text);
}

LRESULT Window::OnDefault(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_PAINT:
        if (wParam != 0)
            PaintInto(reinterpret_cast<HDC>(wParam));
        return 0;
    case WM_ERASEBKGND:
        if (Background == 0)
            return 0;
        if (auto* const dc = gdi::DeviceContext::FromHandle(reinterpret_cast<HDC>(wParam)))
            dc->FillUnits(gdi::ToBox(Client().rect()), gdi::ToPixel(GetSysColor(Background - 1)));
        return 1;
    case WM_CONTEXTMENU:
        if (Window* const parent = m_widget.isWindow() ? nullptr : Parent())
            return parent->Send(message, wParam, lParam);
        return 0;
    case WM_SETFONT:
        m_font.Set(reinterpret_cast<HFONT>(wParam));
        m_widget.setFont(Font() != nullptr ? gdi::ToQFont(Font()) : QFont());
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(Font());
    default:
        return 0;
    }
}
