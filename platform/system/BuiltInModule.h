// Modules of the system that stand in this library itself.
#pragma once

#include <string_view>
#include <windows.h>

// Makes a module known to LoadLibraryW as long as the object lives; each has one with static storage.
class BuiltInModule
{
public:
    // The name, without its ending, and the exports, the last of which is all null, are kept, not copied.
    BuiltInModule(std::u16string_view name, const ModuleExport* exports);
    BuiltInModule(const BuiltInModule&) = delete;
    BuiltInModule& operator=(const BuiltInModule&) = delete;
    ~BuiltInModule();

    HMODULE Handle() { return reinterpret_cast<HMODULE>(this); }
    const ModuleExport* Exports() const { return m_exports; }

    // Null for a module that nobody has made known. The case of A to Z doesn't count.
    static BuiltInModule* Find(std::u16string_view name);
    static BuiltInModule* Of(HMODULE handle);

private:
    template <class Condition> static BuiltInModule* First(Condition fits);

    std::u16string_view m_name;
    const ModuleExport* m_exports;
    BuiltInModule* m_next;

    static constinit BuiltInModule* s_first;
};
