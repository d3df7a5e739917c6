// The tooltip control: texts for rectangles of windows.
#pragma once

#include <QRect>
#include <QString>
#include <WidgetWindow.h>
#include <vector>

// Never shown itself. At TTM_RELAYEVENT it sets the text of the place as the widget's tooltip. Qt shows that,
// below the widget or above it, so that it doesn't hide the places around, and hides it when the mouse leaves
// its place.
class ToolTipWindow : public WidgetWindow<QWidget>
{
public:
    ToolTipWindow(DWORD style, QWidget* parent);

    void AddTool(Window& window, const QString& text, const QRect& rectangle);

protected:
    LRESULT OnDefault(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool eventFilter(QObject* window, QEvent* event) override;

private:
    struct Tool {
        HWND Window;
        QRect Rectangle;
        QString Text;
    };

    void Relay(const MSG& message);
    const Tool* ToolAt(HWND window, QPoint point) const; // the first; null if there is none

    std::vector<Tool> m_tools;
};
