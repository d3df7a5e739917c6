#include "BuiltInModule.h"

constinit BuiltInModule* BuiltInModule::s_first = nullptr;

BuiltInModule::BuiltInModule(LPCWSTR fileName, const ModuleExport* exports)
    : m_fileName(fileName), m_exports(exports), m_next(s_first)
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

BuiltInModule* BuiltInModule::Find(LPCWSTR fileName)
{
    BuiltInModule* known = s_first;
    while (known != nullptr && _wcsicmp(known->m_fileName, fileName) != 0)
        known = known->m_next;
    return known;
}

const BuiltInModule* BuiltInModule::Of(HMODULE module)
{
    BuiltInModule* known = s_first;
    while (known != nullptr && known->Handle() != module)
        known = known->m_next;
    return known;
}
