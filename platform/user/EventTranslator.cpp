#include "Capture.h"
#include "Contain.h"
#include "InputNames.h"
#include "Window.h"

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
#include <utility>

// An event whose message is being handled.
struct EventTranslator::Pending {
    UINT Message;
    QEvent& Event;
    const QtHandling* ByQt; // null once Qt has handled it
    bool Result = true;
};

namespace
{

// Whether the client widget receives these events; the window's own widget receives all others.
bool IsOfClient(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::Wheel:
    case QEvent::Resize:
    case QEvent::Paint:
    case QEvent::ToolTip:
        return true;
    case QEvent::ContextMenu:
        return static_cast<const QContextMenuEvent&>(event).reason() != QContextMenuEvent::Keyboard;
    default:
        return IsMouseEvent(event);
    }
}

bool IsInput(const QEvent& event)
{
    return IsMouseEvent(event) || event.type() == QEvent::Wheel || event.type() == QEvent::KeyPress ||
           event.type() == QEvent::ContextMenu;
}

// Navigation keys belong to the dialog; its controls never see them.
bool IsNavigationKey(WPARAM key)
{
    return key == VK_TAB || key == VK_RETURN || key == VK_ESCAPE;
}

bool IsInDialog(const QWidget& widget)
{
    return !widget.isWindow() && qobject_cast<const QDialog*>(widget.window()) != nullptr;
}

// Qt knows the menu key, but not this one.
bool IsMenuKey(const QKeyEvent& key)
{
    return key.key() == Qt::Key_F10 && key.modifiers() == Qt::ShiftModifier;
}

// Qt's own menus are never shown. The message goes up the parents until a window handles it.
void SendContextMenu(Window& window, const QContextMenuEvent& event)
{
    const bool isByKey = event.reason() == QContextMenuEvent::Keyboard;
    const QPoint point = isByKey ? QPoint(-1, -1) : event.globalPos();
    window.SendContained(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window.Handle()), gdi::ToLParam(point));
}

// The text that the handler gave. In szText it may lack its terminator.
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

bool EventTranslator::Translate(QEvent& event, const QtHandling& qtHandling)
{
    // Qt passes an event that the client widget has ignored on to this one: it has been translated already.
    if (!m_window.IsGone() && &m_window.Client() != &m_window.Widget() && IsOfClient(event))
        return qtHandling(event);
    return TranslateAny(event, qtHandling);
}

bool EventTranslator::TranslateClient(QEvent& event, const QtHandling& qtHandling)
{
    return IsOfClient(event) ? TranslateAny(event, qtHandling) : qtHandling(event);
}

bool EventTranslator::TranslateAny(QEvent& event, const QtHandling& qtHandling)
{
    if (m_window.IsGone() || (IsInput(event) && !m_window.Widget().isEnabled()))
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
        return SendInput(message, MouseKeys(mouse.buttons(), mouse.modifiers()),
                         gdi::ToLParam(mouse.position().toPoint()), event, qtHandling);
    }
    case QEvent::Wheel: {
        const auto& wheel = static_cast<const QWheelEvent&>(event);
        const QPoint point = wheel.globalPosition().toPoint();
        const WPARAM keys = MouseKeys(wheel.buttons(), wheel.modifiers());
        const bool isSideways = IsSideways(wheel); // Qt counts that to the left
        const int delta = isSideways ? -wheel.angleDelta().x() : wheel.angleDelta().y();
        return SendInput(isSideways ? WM_MOUSEHWHEEL : WM_MOUSEWHEEL,
                         MAKEWPARAM(static_cast<UINT>(keys), static_cast<UINT>(delta)), gdi::ToLParam(point),
                         event, qtHandling);
    }
    case QEvent::KeyPress: {
        const auto& pressed = static_cast<const QKeyEvent&>(event);
        if (IsMenuKey(pressed)) {
            SendContextMenu(m_window,
                            QContextMenuEvent(QContextMenuEvent::Keyboard, QPoint(), QCursor::pos()));
            return true;
        }
        if (m_window.ActForMouse(pressed))
            return true;
        const UINT key = VirtualKeyOf(pressed);
        if (key == 0)
            break;
        return SendInput(WM_KEYDOWN, key, 1, event, qtHandling);
    }
    case QEvent::FocusIn:
        return SendFor(WM_SETFOCUS, 0, 0, event, qtHandling);
    case QEvent::FocusOut:
        return SendFor(WM_KILLFOCUS, 0, 0, event, qtHandling);
    case QEvent::Close:
        if (!m_window.Widget().isWindow())
            break;
        return SendFor(WM_CLOSE, 0, 0, event, qtHandling);
    case QEvent::EnabledChange:
        return SendFor(WM_ENABLE, m_window.Widget().isEnabled() ? 1 : 0, 0, event, qtHandling);
    case QEvent::Resize:
        return SendFor(WM_SIZE, 0, gdi::ToLParam(m_window.Client().size()), event, qtHandling);
    case QEvent::ApplicationFontChange:
    case QEvent::PaletteChange:
    case QEvent::StyleChange: {
        const bool result = qtHandling(event);
        if (m_window.Widget().isWindow())
            m_window.SendContained(WM_SETTINGCHANGE);
        return result;
    }
    case QEvent::Paint:
        m_window.Surface().Paint(static_cast<const QPaintEvent&>(event), [&] {
            if (m_window.Attached != nullptr)
                SendFor(WM_PAINT, 0, 0, event, qtHandling);
            else
                qtHandling(event);
        });
        return true;
    case QEvent::ContextMenu:
        SendContextMenu(m_window, static_cast<const QContextMenuEvent&>(event));
        return true;
    case QEvent::ToolTip:
        if (!m_window.HasToolTips)
            break;
        ShowToolTip(static_cast<const QHelpEvent&>(event));
        return true;
    default:
        break;
    }
    return qtHandling(event);
}

// PreTranslateMessage may suppress input. A mouse event ends here: Qt must not offer it to the parent widget.
bool EventTranslator::SendInput(UINT message, WPARAM wParam, LPARAM lParam, QEvent& event,
                                const QtHandling& qtHandling)
{
    if (PreTranslate(message, wParam, lParam))
        return true;
    if (message == WM_KEYDOWN && IsNavigationKey(wParam) && IsInDialog(m_window.Widget()))
        return m_window.IsGone() || qtHandling(event);
    const bool result = m_window.IsGone() || SendFor(message, wParam, lParam, event, qtHandling);
    if (event.type() != QEvent::KeyPress && event.type() != QEvent::Wheel)
        event.accept();
    return result;
}

void EventTranslator::ShowToolTip(const QHelpEvent& event)
{
    NMTTDISPINFOW question{};
    question.hdr = {m_window.Handle(), static_cast<UINT_PTR>(m_window.Id), static_cast<UINT>(TTN_NEEDTEXTW)};
    question.lpszText = question.szText;
    SetMessagePosition(event.globalPos());
    m_window.SendContained(WM_NOTIFY, question.hdr.idFrom, reinterpret_cast<LPARAM>(&question));
    if (const QString text = TextOf(question); text.isEmpty() || m_window.IsGone())
        QToolTip::hideText();
    else
        QToolTip::showText(event.globalPos(), text, &m_window.Client(), m_window.ToolTipPlaceAt(event.pos()));
}

// The target window sees the input first, then its parents up to the top-level window.
bool EventTranslator::PreTranslate(UINT message, WPARAM wParam, LPARAM lParam)
{
    MSG msg{m_window.Handle(), message, wParam, lParam, 0, gdi::ToPoint(MessagePosition())};
    for (Window* window = &m_window; window != nullptr; window = window->Parent()) {
        bool isSuppressed = false;
        if (window->Attached != nullptr)
            Contain([&] { isSuppressed = window->Attached->PreTranslateMessage(&msg) != FALSE; });
        if (isSuppressed)
            return true;
        if (window->IsGone() || window->Widget().isWindow())
            break;
    }
    return false;
}

bool EventTranslator::SendFor(UINT message, WPARAM wParam, LPARAM lParam, QEvent& event,
                              const QtHandling& qtHandling)
{
    const QPointer<QWidget> widget(&m_window.Widget()); // a handler's event loop may delete it
    Pending pending{message, event, &qtHandling};
    Pending* const before = std::exchange(m_pending, &pending);
    m_window.SendContained(message, wParam, lParam);
    if (!widget.isNull())
        m_pending = before;
    if (pending.ByQt != nullptr) // handled without Qt, which hides a window that accepts a close
        event.setAccepted(message != WM_CLOSE);
    return pending.Result;
}

bool EventTranslator::PassToQt(UINT message, WPARAM wParam)
{
    const bool carriesContext = message == WM_PAINT && wParam != 0;
    if (m_pending == nullptr || m_pending->Message != message || m_pending->ByQt == nullptr || carriesContext)
        return false;
    Pending& pending = *m_pending;
    pending.Result = (*std::exchange(pending.ByQt, nullptr))(pending.Event);
    return true;
}
