// Texts for rectangles of windows, which show while the mouse rests there.
#pragma once

#include <QRect>
#include <QString>
#include <WidgetWindow.h>
#include <vector>

// Hears of the mouse by TTM_RELAYEVENT, and gives the widget under it the text of the place; when to show
// that, and when to take it away, is Qt's to know.
class ToolTipWindow : public WidgetWindow<QWidget>
{
public:
    ToolTipWindow(DWORD style, QWidget* parent);

    void AddTool(Window& window, const QString& text, const QRect& rectangle);

protected:
    LRESULT OnDefault(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    struct Tool {
        HWND Window;
        QRect Rectangle;
        QString Text;
    };

    void Relay(const MSG& message);
    QString TextAt(HWND window, QPoint point) const; // that of the first tool there

    std::vector<Tool> m_tools;
};
