#include "BuiltInModule.h"

#include <string>

constinit BuiltInModule* BuiltInModule::s_first = nullptr;

BuiltInModule::BuiltInModule(std::u16string_view name, const ModuleExport* exports)
    : m_name(name), m_exports(exports), m_next(s_first)
{
    s_first = this;
}

BuiltInModule::~BuiltInModule()
{
    for (BuiltInModule** link = &s_first; *link != nullptr; link = &(*link)->m_next) {
        if (*link == this) {
            *link = m_next;
            return;
        }
    }
}

template <class Condition> BuiltInModule* BuiltInModule::First(Condition fits)
{
    for (BuiltInModule* known = s_first; known != nullptr; known = known->m_next) {
        if (fits(*known))
            return known;
    }
    return nullptr;
}

BuiltInModule* BuiltInModule::Find(std::u16string_view name)
{
    const std::u16string wanted(name);
    return First([&wanted](const BuiltInModule& known) {
        return _wcsicmp(std::u16string(known.m_name).c_str(), wanted.c_str()) == 0;
    });
}

BuiltInModule* BuiltInModule::Of(HMODULE handle)
{
    return First([handle](BuiltInModule& known) { return known.Handle() == handle; });
}
