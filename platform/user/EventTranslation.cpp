// Which message each event becomes.
#include "Capture.h"
#include "Contain.h"
#include "WindowSide.h"

#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QWheelEvent>
#include <afxwin.h>
#include <optional>

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

struct KeyName {
    int QtKey;
    UINT VirtualKey;
};
constexpr KeyName keyNames[] = {
    {Qt::Key_Return, VK_RETURN}, {Qt::Key_Enter, VK_RETURN}, {Qt::Key_Escape, VK_ESCAPE},
    {Qt::Key_Space, VK_SPACE},   {Qt::Key_Left, VK_LEFT},    {Qt::Key_Up, VK_UP},
    {Qt::Key_Right, VK_RIGHT},   {Qt::Key_Down, VK_DOWN},    {Qt::Key_Tab, 9},
    {Qt::Key_Backspace, 8},      {Qt::Key_Delete, 46},       {Qt::Key_Home, 36},
    {Qt::Key_End, 35},           {Qt::Key_PageUp, 33},       {Qt::Key_PageDown, 34},
    {Qt::Key_F2, 113},           {Qt::Key_F4, 115},          {Qt::Key_Shift, 16},
    {Qt::Key_Control, 17},       {Qt::Key_Alt, 18},
};

// 0 for a key that no message names. Letters and digits have the numbers of their characters.
UINT VirtualKeyOf(int qtKey)
{
    for (const KeyName& name : keyNames) {
        if (name.QtKey == qtKey)
            return name.VirtualKey;
    }
    return qtKey > Qt::Key_Space && qtKey <= Qt::Key_Z ? static_cast<UINT>(qtKey) : 0;
}

struct ButtonMessages {
    Qt::MouseButton Button;
    UINT Press;
    UINT Release;
    UINT DoubleClick;
};
constexpr ButtonMessages buttonMessages[] = {
    {Qt::LeftButton, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK},
    {Qt::RightButton, WM_RBUTTONDOWN, WM_RBUTTONUP, WM_RBUTTONDOWN},
};

UINT MouseMessageOf(const QMouseEvent& event)
{
    if (event.type() == QEvent::MouseMove)
        return WM_MOUSEMOVE;
    for (const ButtonMessages& messages : buttonMessages) {
        if (messages.Button != event.button())
            continue;
        switch (event.type()) {
        case QEvent::MouseButtonPress:
            return messages.Press;
        case QEvent::MouseButtonRelease:
            return messages.Release;
        default:
            return messages.DoubleClick;
        }
    }
    return 0;
}

WPARAM MouseKeys(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers)
{
    return (buttons.testFlag(Qt::LeftButton) ? MK_LBUTTON : 0) |
           (buttons.testFlag(Qt::RightButton) ? MK_RBUTTON : 0) |
           (modifiers.testFlag(Qt::ShiftModifier) ? MK_SHIFT : 0) |
           (modifiers.testFlag(Qt::ControlModifier) ? MK_CONTROL : 0);
}

} // namespace

bool WindowSide::Translate(QEvent& event, const QtHandling& qtHandling)
{
    if (m_isGone)
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
        const UINT key = VirtualKeyOf(static_cast<const QKeyEvent&>(event).key());
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
        return SendFor(WM_SIZE, 0, MAKELPARAM(m_widget.width(), m_widget.height()), event, qtHandling);
    case QEvent::ApplicationFontChange:
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
        if (!m_widget.isWindow())
            break;
        return SendFor(WM_SETTINGCHANGE, 0, 0, event, qtHandling);
    case QEvent::Paint:
        if (!IsDrawnByMessage())
            break;
        PaintByMessage(static_cast<const QPaintEvent&>(event).region());
        return true;
    default:
        break;
    }
    return qtHandling(event);
}

// Input can be kept from being sent.
bool WindowSide::SendInput(UINT message, WPARAM wParam, LPARAM lParam, QEvent& event,
                           const QtHandling& qtHandling)
{
    if (PreTranslate(message, wParam, lParam)) {
        event.accept();
        return true;
    }
    return m_isGone || SendFor(message, wParam, lParam, event, qtHandling);
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
    Pending pending{message, event, qtHandling};
    Pending* const before = std::exchange(m_pending, &pending);
    SendContained(message, wParam, lParam);
    m_pending = before;
    if (!pending.IsHandledByQt)
        event.accept(); // whoever handled the message has kept the event from Qt
    return pending.Result;
}

LRESULT WindowSide::Default(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (m_pending == nullptr || m_pending->Message != message || m_pending->IsHandledByQt)
        return OnDefault(message, wParam, lParam);
    Pending& pending = *m_pending;
    pending.IsHandledByQt = true;
    pending.Result = pending.ByQt(pending.Event);
    return 0;
}
