// Texts for rectangles of windows, which show while the mouse rests there.
#pragma once

#include <QRect>
#include <QString>
#include <WindowSide.h>
#include <vector>

// Makes a tooltip control, which is never shown itself. It belongs to its parent.
WindowSide& MakeToolTip(DWORD style, QWidget* parent);

// Hears of the mouse by TTM_RELAYEVENT, and gives the widget under it the text of the place; when to show
// that, and when to take it away, is Qt's to know.
class ToolTipWindow : public WidgetWindow<QWidget>
{
public:
    explicit ToolTipWindow(QWidget* parent);

    void AddTool(WindowSide& window, const QString& text, const QRect& rectangle);

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
