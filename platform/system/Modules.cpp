#include <windows.h>

#include "BuiltInModule.h"
#include "ModuleFolder.h"
#include "Unicode.h"

#include <algorithm>
#include <dlfcn.h>
#include <new>
#include <string>
#include <string_view>

namespace
{

std::u16string_view WithoutEnding(std::u16string_view name)
{
    constexpr std::u16string_view ending = u".dll";
    const std::size_t length = name.size() - std::min(name.size(), ending.size());
    return _wcsicmp(name.data() + length, ending.data()) == 0 ? name.substr(0, length) : name;
}

} // namespace

HMODULE LoadLibraryW(LPCWSTR fileName)
{
    try {
        const std::u16string_view stem = WithoutEnding(fileName);
        if (BuiltInModule* const module = BuiltInModule::Find(stem))
            return module->Handle();
        const std::string name = "lib" + ToUtf8(stem) + ".so";
        void* module = dlopen(name.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (module == nullptr)
            module = dlopen((ModuleFolder() + '/' + name).c_str(), RTLD_NOW | RTLD_LOCAL);
        return static_cast<HMODULE>(module);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

BOOL FreeLibrary(HMODULE /*module*/)
{
    return TRUE;
}

FARPROC GetProcAddress(HMODULE module, const char* name)
{
    if (module == nullptr)
        return nullptr;
    const BuiltInModule* const builtIn = BuiltInModule::Of(module);
    const auto* entry = builtIn != nullptr ? builtIn->Exports()
                                           : static_cast<const ModuleExport*>(dlsym(module, "ModuleExports"));
    for (; entry != nullptr && entry->Name != nullptr; ++entry) {
        if (std::string_view(entry->Name) == name)
            return reinterpret_cast<FARPROC>(entry->Address);
    }
    return builtIn != nullptr ? nullptr : reinterpret_cast<FARPROC>(dlsym(module, name));
}
