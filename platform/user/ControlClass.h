// The window classes that a dialog template names.
#pragma once

#include <string_view>
#include <winmsg.h>

class QWidget;
class WindowSide;

// Makes a window of a control's kind, which then belongs to the widget that it is given.
using ControlFactory = WindowSide& (*)(DWORD style, QWidget* parent);

// Makes a class known as long as the object lives; each control has one with static storage.
class ControlClass
{
public:
    // The name is kept, not copied.
    ControlClass(std::u16string_view name, ControlFactory factory);
    ControlClass(const ControlClass&) = delete;
    ControlClass& operator=(const ControlClass&) = delete;
    ~ControlClass();

    // Null for a class that nobody has made known. The case of A to Z doesn't count.
    static ControlFactory Find(std::u16string_view name);

private:
    std::u16string_view m_name;
    ControlFactory m_factory;
    ControlClass* m_next;

    static constinit ControlClass* s_first;
};
