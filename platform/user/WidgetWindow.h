// Widgets that are windows.
#pragma once

#include "Window.h"

#include <utility>

// A widget of Qt's class Base that is a window.
template <class Base> class WidgetWindow : public Base, public Window
{
public:
    template <class... Arguments>
    explicit WidgetWindow(Arguments&&... arguments)
        : Base(std::forward<Arguments>(arguments)...), Window(static_cast<QWidget&>(*this))
    {
    }
    ~WidgetWindow() override { SendLastMessages(); }

protected:
    bool event(QEvent* event) override
    {
        return Events().Translate(*event, [this](QEvent& same) { return Base::event(&same); });
    }
};

// A scroll area of Qt's class Base that is a window: its client area is the viewport.
template <class Base> class ScrollAreaWindow : public WidgetWindow<Base>
{
public:
    using WidgetWindow<Base>::WidgetWindow;

    QWidget& Client() override { return *this->viewport(); }

protected:
    bool viewportEvent(QEvent* event) override
    {
        return this->Events().TranslateClient(*event,
                                              [this](QEvent& same) { return Base::viewportEvent(&same); });
    }
};
