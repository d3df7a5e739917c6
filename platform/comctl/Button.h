// Push buttons, check boxes and group boxes.
#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>
#include <WidgetWindow.h>
#include <winctrl.h>

// A button that can be clicked.
template <class Base> class ClickableWindow : public WidgetWindow<Base>
{
public:
    ClickableWindow(DWORD style, QWidget* parent);

    QString Text() const override { return this->text(); }
    void SetText(const QString& text) override { this->setText(text); }

protected:
    DWORD Type() const { return this->Style & BS_TYPEMASK; }

    LRESULT OnDefault(UINT message, WPARAM wParam, LPARAM lParam) override;
};

// Drawn by its owner with BS_OWNERDRAW.
class PushButtonWindow : public ClickableWindow<QPushButton>
{
public:
    PushButtonWindow(DWORD style, QWidget* parent);

    void OnStyleChanged() override;
    QAccessibleInterface* NewAccessible() override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

// With two states, or three with BM_SETSTYLE; each click advances to the next.
class CheckBoxWindow : public ClickableWindow<QCheckBox>
{
public:
    using ClickableWindow::ClickableWindow;

    void OnStyleChanged() override;

protected:
    LRESULT OnDefault(UINT message, WPARAM wParam, LPARAM lParam) override;
    void nextCheckState() override;

private:
    WPARAM Check() const;
    void SetCheck(WPARAM check); // limited to the last state of the box
};

class GroupBoxWindow : public WidgetWindow<QGroupBox>
{
public:
    GroupBoxWindow(DWORD style, QWidget* parent);

    QString Text() const override { return title(); }
    void SetText(const QString& text) override { setTitle(text); }
};
