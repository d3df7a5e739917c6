#include "ToolTipWindow.h"

#include <QToolTip>
#include <algorithm>

WindowSide& MakeToolTip(DWORD style, QWidget* parent)
{
    auto* const window = new ToolTipWindow(parent);
    window->Style = style;
    return *window;
}

ToolTipWindow::ToolTipWindow(QWidget* parent) : WidgetWindow(parent, Qt::ToolTip) {}

void ToolTipWindow::AddTool(WindowSide& window, const QString& text, const QRect& rectangle)
{
    m_tools.push_back({window.Handle(), rectangle, text});
}

LRESULT ToolTipWindow::OnDefault(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != TTM_RELAYEVENT)
        return WidgetWindow::OnDefault(message, wParam, lParam);
    if (lParam != 0)
        Relay(*reinterpret_cast<const MSG*>(lParam));
    return 0;
}

void ToolTipWindow::Relay(const MSG& message)
{
    WindowSide* const window = WindowSide::Of(message.hwnd);
    if (message.message != WM_MOUSEMOVE || window == nullptr)
        return;
    const auto position = static_cast<UINT_PTR>(message.lParam);
    const QPoint point(static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position)));
    const QString text = TextAt(message.hwnd, point);
    if (text == window->Widget().toolTip())
        return;
    window->Widget().setToolTip(text);
    QToolTip::hideText(); // it is of the place that the mouse has left
}

QString ToolTipWindow::TextAt(HWND window, QPoint point) const
{
    const auto tool = std::ranges::find_if(
        m_tools, [&](const Tool& each) { return each.Window == window && each.Rectangle.contains(point); });
    return tool == m_tools.end() ? QString() : tool->Text;
}
