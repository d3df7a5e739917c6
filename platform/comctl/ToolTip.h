// The tooltip control: texts for rectangles of windows.
#pragma once

#include <QRect>
#include <QString>
#include <WidgetWindow.h>
#include <vector>

// Never shown itself. At TTM_RELAYEVENT it sets the text of the place as the widget's tooltip; Qt shows and
// hides that.
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
    QString TextAt(HWND window, QPoint point) const; // of the first matching tool

    std::vector<Tool> m_tools;
};
