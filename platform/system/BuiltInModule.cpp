#include "BuiltInModule.h"

constinit InstanceList<BuiltInModule> BuiltInModule::s_modules;

BuiltInModule::BuiltInModule(LPCWSTR fileName, const ModuleExport* exports)
    : m_fileName(fileName), m_exports(exports)
{
}

BuiltInModule* BuiltInModule::Find(LPCWSTR fileName)
{
    return s_modules.Find(
        [fileName](const BuiltInModule& each) { return _wcsicmp(each.m_fileName, fileName) == 0; });
}

const BuiltInModule* BuiltInModule::Of(HMODULE module)
{
    return s_modules.Find([module](BuiltInModule& each) { return each.Handle() == module; });
}
