#include "ControlClass.h"

#include <string>
#include <windows.h>

constinit ControlClass* ControlClass::s_first = nullptr;

ControlClass::ControlClass(std::u16string_view name, ControlFactory factory)
    : m_name(name), m_factory(factory), m_next(s_first)
{
    s_first = this;
}

ControlClass::~ControlClass()
{
    for (ControlClass** link = &s_first; *link != nullptr; link = &(*link)->m_next) {
        if (*link == this) {
            *link = m_next;
            return;
        }
    }
}

ControlFactory ControlClass::Find(std::u16string_view name)
{
    const std::u16string wanted(name);
    for (const ControlClass* known = s_first; known != nullptr; known = known->m_next) {
        if (_wcsicmp(std::u16string(known->m_name).c_str(), wanted.c_str()) == 0)
            return known->m_factory;
    }
    return nullptr;
}
