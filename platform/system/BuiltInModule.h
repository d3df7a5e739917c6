// Modules that the layer itself stands for: what they export is code of this library.
#pragma once

#include <windows.h>

// Makes a module known to LoadLibraryW as long as the object lives; each has one with static storage.
class PLATFORM_API BuiltInModule
{
public:
    // Name and exports are kept, not copied; the last export is all null.
    BuiltInModule(LPCWSTR fileName, const ModuleExport* exports);
    BuiltInModule(const BuiltInModule&) = delete;
    BuiltInModule& operator=(const BuiltInModule&) = delete;
    ~BuiltInModule();

    // Null for a module that nobody has made known. The case of A to Z doesn't count.
    static BuiltInModule* Find(LPCWSTR fileName);
    static const BuiltInModule* Of(HMODULE module);

    HMODULE Handle() { return reinterpret_cast<HMODULE>(this); }
    const ModuleExport* Exports() const { return m_exports; }

private:
    LPCWSTR m_fileName;
    const ModuleExport* m_exports;
    BuiltInModule* m_next;

    static constinit BuiltInModule* s_first;
};
