// Which message each event becomes.
#include "Capture.h"
#include "Contain.h"
#include "InputNames.h"
#include "WindowSide.h"

#include <QContextMenuEvent>
#include <QCursor>
#include <QDialog>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPointer>
#include <QTextDocument>
#include <QToolTip>
#include <QWheelEvent>
#include <QtConvert.h>
#include <afxwin.h>
#include <commctrl.h>

// An event on its way through the messages.
struct WindowSide::Pending {
    UINT Message;
    QEvent& Event;
    const QtHandling& ByQt;
    bool IsHandledByQt = false;
    bool Result = true;
};

namespace
{

// The events that come to the widget which stands for the client area; all others come to the window's own.
bool IsOfClient(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::Resize:
    case QEvent::Paint:
    case QEvent::ToolTip:
        return true;
    case QEvent::ContextMenu:
        return static_cast<const QContextMenuEvent&>(event).reason() != QContextMenuEvent::Keyboard;
    default:
        return false;
    }
}

bool IsInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::ContextMenu:
        return true;
    default:
        return false;
    }
}

// The keys by which a dialog is gone through and left: no window in one is asked what it makes of them.
bool IsOfDialog(WPARAM key)
{
    return key == VK_TAB || key == VK_RETURN || key == VK_ESCAPE;
}

bool IsInDialog(const QWidget& widget)
{
    return !widget.isWindow() && qobject_cast<const QDialog*>(widget.window()) != nullptr;
}

// What the asked window has filled in; bounded where it should have ended by itself.
QString TextOf(const NMTTDISPINFOW& answer)
{
    if (answer.lpszText == nullptr)
        return {};
    std::u16string_view text(answer.szText, tooltipTextSize);
    if (answer.lpszText == answer.szText)
        text = text.substr(0, text.find(u'\0'));
    else
        text = answer.lpszText;
    const QString plain = gdi::ToQString(text);
    return Qt::mightBeRichText(plain) ? Qt::convertFromPlainText(plain) : plain;
}

} // namespace

bool WindowSide::Translate(QEvent& event, const QtHandling& qtHandling)
{
    // What the client widget leaves comes to the widget that it is in, after it has become a message.
    if (!m_isGone && &Client() != &m_widget && IsOfClient(event))
        return qtHandling(event);
    return TranslateAny(event, qtHandling);
}

bool WindowSide::TranslateClient(QEvent& event, const QtHandling& qtHandling)
{
    return IsOfClient(event) ? TranslateAny(event, qtHandling) : qtHandling(event);
}

bool WindowSide::TranslateAny(QEvent& event, const QtHandling& qtHandling)
{
    if (m_isGone || (IsInput(event.type()) && !m_widget.isEnabled()))
        return qtHandling(event);
    switch (event.type()) {
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick: {
        const auto& mouse = static_cast<const QMouseEvent&>(event);
        const UINT message = MouseMessageOf(mouse);
        if (message == 0)
            break;
        SetMessagePosition(mouse.globalPosition().toPoint());
        const QPoint point = mouse.position().toPoint();
        return SendInput(message, MouseKeys(mouse.buttons(), mouse.modifiers()),
                         MAKELPARAM(point.x(), point.y()), event, qtHandling);
    }
    case QEvent::Wheel: {
        const auto& wheel = static_cast<const QWheelEvent&>(event);
        const QPoint point = wheel.globalPosition().toPoint();
        SetMessagePosition(point);
        const WPARAM keys = MouseKeys(wheel.buttons(), wheel.modifiers());
        return SendInput(WM_MOUSEWHEEL,
                         MAKEWPARAM(static_cast<UINT>(keys), static_cast<UINT>(wheel.angleDelta().y())),
                         MAKELPARAM(point.x(), point.y()), event, qtHandling);
    }
    case QEvent::KeyPress: {
        const UINT key = VirtualKeyOf(static_cast<const QKeyEvent&>(event));
        if (key == 0)
            break;
        SetMessagePosition(QCursor::pos());
        return SendInput(WM_KEYDOWN, key, 1, event, qtHandling);
    }
    case QEvent::FocusIn:
        return SendFor(WM_SETFOCUS, 0, 0, event, qtHandling);
    case QEvent::FocusOut:
        return SendFor(WM_KILLFOCUS, 0, 0, event, qtHandling);
    case QEvent::EnabledChange:
        return SendFor(WM_ENABLE, m_widget.isEnabled() ? 1 : 0, 0, event, qtHandling);
    case QEvent::Resize:
        return SendFor(WM_SIZE, 0, MAKELPARAM(Client().width(), Client().height()), event, qtHandling);
    case QEvent::ApplicationFontChange:
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
        if (!m_widget.isWindow())
            break;
        return SendFor(WM_SETTINGCHANGE, 0, 0, event, qtHandling);
    case QEvent::Paint:
        return Paint(static_cast<QPaintEvent&>(event), qtHandling);
    case QEvent::ContextMenu:
        SendContextMenu(static_cast<const QContextMenuEvent&>(event));
        event.accept();
        return true;
    case QEvent::ToolTip:
        if (!HasToolTips)
            break;
        ShowToolTip(static_cast<const QHelpEvent&>(event));
        return true;
    default:
        break;
    }
    return qtHandling(event);
}

// Input can be kept from being sent. The mouse is one window's alone, whatever its handlers leave.
bool WindowSide::SendInput(UINT message, WPARAM wParam, LPARAM lParam, QEvent& event,
                           const QtHandling& qtHandling)
{
    if (PreTranslate(message, wParam, lParam)) {
        event.accept();
        return true;
    }
    if (message == WM_KEYDOWN && IsOfDialog(wParam) && IsInDialog(m_widget))
        return m_isGone || qtHandling(event);
    const bool result = m_isGone || SendFor(message, wParam, lParam, event, qtHandling);
    if (event.type() != QEvent::KeyPress && event.type() != QEvent::Wheel)
        event.accept();
    return result;
}

// Qt's own menus stay away: the message goes up until a window handles it.
void WindowSide::SendContextMenu(const QContextMenuEvent& event)
{
    const bool isByKey = event.reason() == QContextMenuEvent::Keyboard;
    const QPoint point = isByKey ? QPoint(-1, -1) : event.globalPos();
    SetMessagePosition(event.globalPos());
    SendContained(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(Handle()), MAKELPARAM(point.x(), point.y()));
}

void WindowSide::ShowToolTip(const QHelpEvent& event)
{
    NMTTDISPINFOW question{};
    question.hdr = {Handle(), static_cast<UINT_PTR>(Id), static_cast<UINT>(TTN_NEEDTEXTW)};
    question.lpszText = question.szText;
    SetMessagePosition(event.globalPos());
    SendContained(WM_NOTIFY, question.hdr.idFrom, reinterpret_cast<LPARAM>(&question));
    if (const QString text = TextOf(question); text.isEmpty() || m_isGone)
        QToolTip::hideText();
    else
        QToolTip::showText(event.globalPos(), text, &Client());
}

// The window that the input is for sees it first, then those that it is in.
bool WindowSide::PreTranslate(UINT message, WPARAM wParam, LPARAM lParam)
{
    const QPoint position = MessagePosition();
    MSG msg{Handle(), message, wParam, lParam, 0, {position.x(), position.y()}};
    for (WindowSide* window = this; window != nullptr; window = window->Parent()) {
        bool isKept = false;
        if (window->Attached != nullptr)
            Contain([&] { isKept = window->Attached->PreTranslateMessage(&msg) != FALSE; });
        if (isKept)
            return true;
        if (window->m_isGone || window->Widget().isWindow())
            break;
    }
    return false;
}

bool WindowSide::SendFor(UINT message, WPARAM wParam, LPARAM lParam, QEvent& event,
                         const QtHandling& qtHandling)
{
    const QPointer<QWidget> widget(&m_widget); // may be deleted by whatever runs in a loop of a handler
    Pending pending{message, event, qtHandling};
    Pending* const before = std::exchange(m_pending, &pending);
    SendContained(message, wParam, lParam);
    if (!widget.isNull())
        m_pending = before;
    if (!pending.IsHandledByQt)
        event.accept(); // whoever handled the message has kept the event from Qt
    return pending.Result;
}

LRESULT WindowSide::Default(UINT message, WPARAM wParam, LPARAM lParam)
{
    const bool bringsContext = message == WM_PAINT && wParam != 0;
    if (m_pending == nullptr || m_pending->Message != message || m_pending->IsHandledByQt || bringsContext)
        return OnDefault(message, wParam, lParam);
    Pending& pending = *m_pending;
    pending.IsHandledByQt = true;
    pending.Result = pending.ByQt(pending.Event);
    return 0;
}
