#include "ControlClass.h"

#include <string>
#include <windows.h>

constinit InstanceList<ControlClass> ControlClass::s_classes;

ControlFactory ControlClass::Find(std::u16string_view name)
{
    const std::u16string wanted(name);
    const ControlClass* const known = s_classes.Find([&wanted](const ControlClass& each) {
        return _wcsicmp(std::u16string(each.m_name).c_str(), wanted.c_str()) == 0;
    });
    return known != nullptr ? known->m_factory : nullptr;
}
