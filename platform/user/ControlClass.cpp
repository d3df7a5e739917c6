#include "ControlClass.h"

#include <Ascii.h>
#include <algorithm>

constinit InstanceList<ControlClass> ControlClass::s_classes;

ControlFactory ControlClass::Find(std::u16string_view name)
{
    const ControlClass* const known = s_classes.Find([name](const ControlClass& each) {
        return std::ranges::equal(each.m_name, name, {}, FoldAscii<char16_t>, FoldAscii<char16_t>);
    });
    return known != nullptr ? known->m_factory : nullptr;
}
