// A text in a dialog, or the place of an object that adds windows of its own.
#pragma once

#include <WidgetWindow.h>
#include <winctrl.h>

// Mouse events go to the parent. The text begins at the top left corner. With SS_PATHELLIPSIS it is a path,
// which is shortened in the middle and keeps its ampersands; otherwise an ampersand underlines the next
// character.
class StaticWindow : public WidgetWindow<QWidget>
{
public:
    StaticWindow(DWORD style, QWidget* parent);

    void SetText(const QString& text) override;
    QAccessibleInterface* NewAccessible() override;

protected:
    bool event(QEvent* event) override;
    void childEvent(QChildEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool ShowsPath() const { return (Style & SS_ELLIPSISMASK) == SS_PATHELLIPSIS; }
    int TextFlags() const;
};
