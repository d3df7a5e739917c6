// A text that stands in a dialog, or a place there that an object fills with windows of its own.
#pragma once

#include <WidgetWindow.h>
#include <winctrl.h>

// The text begins at the top left corner. A text in which SS_PATHELLIPSIS sees a path loses its middle where
// there is no room for it, and keeps its ampersands; in any other an ampersand underlines the next character.
class StaticWindow : public WidgetWindow<QWidget>
{
public:
    StaticWindow(DWORD style, QWidget* parent);

    void SetText(const QString& text) override;

protected:
    LRESULT OnDefault(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool ShowsPath() const { return (Style & SS_ELLIPSISMASK) == SS_PATHELLIPSIS; }
    int TextFlags() const;
};
