// Modules that the layer implements itself: their exports are functions of this library.
#pragma once

#include "InstanceList.h"

#include <windows.h>

// Makes a module known to LoadLibraryW during its lifetime; each module has one with static storage.
class PLATFORM_API BuiltInModule
{
public:
    // Name and exports are kept, not copied; the last export is all null.
    BuiltInModule(LPCWSTR fileName, const ModuleExport* exports);

    // Null for an unknown module. Names are compared without regard to the case of A to Z.
    static BuiltInModule* Find(LPCWSTR fileName);
    static const BuiltInModule* Of(HMODULE module);

    HMODULE Handle() { return reinterpret_cast<HMODULE>(this); }
    const ModuleExport* Exports() const { return m_exports; }

private:
    static constinit InstanceList<BuiltInModule> s_modules;

    LPCWSTR m_fileName;
    const ModuleExport* m_exports;
    InstanceList<BuiltInModule>::Entry m_entry{s_modules, *this};
};
