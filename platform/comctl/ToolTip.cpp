#include "ToolTip.h"

#include "Control.h"

#include <QFontMetrics>
#include <QHelpEvent>
#include <QScreen>
#include <QToolTip>
#include <QtConvert.h>
#include <algorithm>
#include <commctrl.h>

namespace
{

// Where Qt shows a tooltip just below a widget, or above it where the screen ends.
QPoint PlaceBeside(const QWidget& widget, int x)
{
    constexpr int distance = 24; // pixels that Qt keeps from the point, and the frame of the tooltip
    const int height = QFontMetrics(QToolTip::font()).height() + distance;
    const int top = widget.mapToGlobal(QPoint(0, 0)).y();
    const int bottom = top + widget.height();
    return {x, bottom + height <= widget.screen()->geometry().bottom() ? bottom : top - height - distance};
}

} // namespace

ToolTipWindow::ToolTipWindow(DWORD style, QWidget* parent) : WidgetWindow(parent, Qt::ToolTip)
{
    Style = style;
}

void ToolTipWindow::AddTool(Window& window, const QString& text, const QRect& rectangle)
{
    m_tools.push_back({window.Handle(), rectangle, text});
    window.Client().installEventFilter(this);
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
    const Tool* const tool = ToolAt(message.hwnd, gdi::ToQPoint(CPoint(message.lParam)));
    const QString text = tool != nullptr ? tool->Text : QString();
    if (text == window->Widget().toolTip())
        return;
    window->Widget().setToolTip(text);
    QToolTip::hideText(); // belongs to the previous place
}

const ToolTipWindow::Tool* ToolTipWindow::ToolAt(HWND window, QPoint point) const
{
    const auto tool = std::ranges::find_if(
        m_tools, [&](const Tool& each) { return each.Window == window && each.Rectangle.contains(point); });
    return tool != m_tools.end() ? &*tool : nullptr;
}

bool ToolTipWindow::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return WidgetWindow::eventFilter(object, event);
    const auto& help = *static_cast<const QHelpEvent*>(event);
    auto& widget = *static_cast<QWidget*>(object);
    Window* const window = Window::Of(&widget);
    const Tool* const tool = window != nullptr ? ToolAt(window->Handle(), help.pos()) : nullptr;
    if (tool != nullptr)
        QToolTip::showText(PlaceBeside(widget, help.globalX()), tool->Text, &widget, tool->Rectangle);
    return true;
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
