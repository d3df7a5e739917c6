#include "InputNames.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <span>

namespace
{

struct KeyName {
    int QtKey;
    UINT VirtualKey;
};
constexpr KeyName keyNames[] = {
    {Qt::Key_Return, VK_RETURN}, {Qt::Key_Enter, VK_RETURN}, {Qt::Key_Escape, VK_ESCAPE},
    {Qt::Key_Space, VK_SPACE},   {Qt::Key_Left, VK_LEFT},    {Qt::Key_Up, VK_UP},
    {Qt::Key_Right, VK_RIGHT},   {Qt::Key_Down, VK_DOWN},    {Qt::Key_Tab, VK_TAB},
    {Qt::Key_Backspace, 8},      {Qt::Key_Delete, 46},       {Qt::Key_Home, 36},
    {Qt::Key_End, 35},           {Qt::Key_PageUp, 33},       {Qt::Key_PageDown, 34},
    {Qt::Key_F2, 113},           {Qt::Key_F4, 115},          {Qt::Key_Shift, 16},
    {Qt::Key_Control, 17},       {Qt::Key_Alt, 18},          {Qt::Key_Plus, 187},
    {Qt::Key_Minus, 189},
};
constexpr KeyName numberPadNames[] = {
    {Qt::Key_Plus, VK_ADD}, {Qt::Key_Minus, VK_SUBTRACT}, {Qt::Key_Asterisk, VK_MULTIPLY}};
constexpr UINT otherCharacter = 231;

UINT FindKey(std::span<const KeyName> names, int qtKey)
{
    const auto found = std::ranges::find(names, qtKey, &KeyName::QtKey);
    return found == names.end() ? 0 : found->VirtualKey;
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

} // namespace

UINT VirtualKeyOf(const QKeyEvent& event)
{
    const int key = event.key();
    if (event.modifiers().testFlag(Qt::KeypadModifier)) {
        if (const UINT onNumberPad = FindKey(numberPadNames, key); onNumberPad != 0)
            return onNumberPad;
    }
    if (const UINT named = FindKey(keyNames, key); named != 0)
        return named;
    if ((key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z))
        return static_cast<UINT>(key);
    return key > Qt::Key_Space && key < Qt::Key_Escape ? otherCharacter : 0;
}

bool IsMouseEvent(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        return true;
    default:
        return false;
    }
}

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

bool IsSideways(const QWheelEvent& event)
{
    return qAbs(event.angleDelta().x()) > qAbs(event.angleDelta().y());
}

WPARAM MouseKeys(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers)
{
    return (buttons.testFlag(Qt::LeftButton) ? MK_LBUTTON : 0) |
           (buttons.testFlag(Qt::RightButton) ? MK_RBUTTON : 0) |
           (modifiers.testFlag(Qt::ShiftModifier) ? MK_SHIFT : 0) |
           (modifiers.testFlag(Qt::ControlModifier) ? MK_CONTROL : 0);
}
