#include "ToolTip.h"

#include "Control.h"

#include <QToolTip>
#include <QtConvert.h>
#include <algorithm>
#include <commctrl.h>

ToolTipWindow::ToolTipWindow(DWORD style, QWidget* parent) : WidgetWindow(parent, Qt::ToolTip)
{
    Style = style;
}

void ToolTipWindow::AddTool(Window& window, const QString& text, const QRect& rectangle)
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
    Window* const window = Window::Of(message.hwnd);
    if (message.message != WM_MOUSEMOVE || window == nullptr)
        return;
    const QString text = TextAt(message.hwnd, gdi::ToQPoint(CPoint(message.lParam)));
    if (text == window->Widget().toolTip())
        return;
    window->Widget().setToolTip(text);
    QToolTip::hideText(); // belongs to the previous place
}

QString ToolTipWindow::TextAt(HWND window, QPoint point) const
{
    const auto tool = std::ranges::find_if(
        m_tools, [&](const Tool& each) { return each.Window == window && each.Rectangle.contains(point); });
    return tool == m_tools.end() ? QString() : tool->Text;
}

BOOL CToolTipCtrl::Create(CWnd* pParentWnd, DWORD dwStyle)
{
    return CreateControl(*this, MakeControl<ToolTipWindow>, {nullptr, dwStyle, {0, 0, 0, 0}, pParentWnd, 0});
}

BOOL CToolTipCtrl::AddTool(CWnd* pWnd, LPCTSTR lpszText, LPCRECT lpRectTool, UINT_PTR /*nIDTool*/)
{
    auto* const control = dynamic_cast<ToolTipWindow*>(Window::Of(m_hWnd));
    Window* const window = Window::Of(pWnd != nullptr ? pWnd->m_hWnd : nullptr);
    if (control == nullptr || window == nullptr || lpszText == nullptr || lpRectTool == nullptr)
        return FALSE;
    control->AddTool(*window, gdi::ToQString(lpszText), gdi::ToQRect(*lpRectTool));
    return TRUE;
}
