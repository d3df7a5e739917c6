// The window classes that dialog templates name.
#pragma once

#include <InstanceList.h>
#include <string_view>
#include <winmsg.h>

class QWidget;
class Window;

// Creates a control, which the parent owns.
using ControlFactory = Window& (*)(DWORD style, QWidget* parent);

// Makes a class known to dialogs during its lifetime; each control has one with static storage.
class ControlClass
{
public:
    // The name is kept, not copied.
    ControlClass(std::u16string_view name, ControlFactory factory) : m_name(name), m_factory(factory) {}

    // Null for an unknown class. Names are compared without regard to the case of A to Z.
    static ControlFactory Find(std::u16string_view name);

private:
    static constinit InstanceList<ControlClass> s_classes;

    std::u16string_view m_name;
    ControlFactory m_factory;
    InstanceList<ControlClass>::Entry m_entry{s_classes, *this};
};
