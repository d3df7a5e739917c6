#include <afxwin.h>

#include "BuiltInModule.h"
#include "DisplayNames.h"
#include "ModuleFolder.h"
#include "StandardError.h"
#include "Unicode.h"

#include <dlfcn.h>
#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace
{

// "name.dll" becomes "libname.so".
std::string NativeName(std::string name)
{
    constexpr std::string_view ending = ".dll";
    if (name.ends_with(ending))
        name.erase(name.size() - ending.size());
    return "lib" + name + ".so";
}

FARPROC FindExport(const ModuleExport* entry, const char* name)
{
    for (; entry != nullptr && entry->Name != nullptr; ++entry) {
        if (std::string_view(entry->Name) == name)
            return reinterpret_cast<FARPROC>(entry->Address);
    }
    return nullptr;
}

} // namespace

HMODULE LoadLibraryW(LPCWSTR fileName)
{
    if (BuiltInModule* const ours = BuiltInModule::Find(fileName))
        return ours->Handle();
    try {
        const std::string name = NativeName(ToUtf8(fileName));
        void* module = dlopen(name.c_str(), RTLD_NOW | RTLD_LOCAL);
        // The run path of this library covers these folders, but a sanitizer's dlopen ignores it.
        for (const char* const folder : {"/", "/../"}) {
            if (module == nullptr)
                module = dlopen((ModuleFolder() + (folder + name)).c_str(), RTLD_NOW | RTLD_LOCAL);
        }
        return static_cast<HMODULE>(module);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

FARPROC GetProcAddress(HMODULE module, const char* name)
{
    if (module == nullptr)
        return nullptr;
    if (const BuiltInModule* const ours = BuiltInModule::Of(module))
        return FindExport(ours->Exports(), name);
    const auto* const table = static_cast<const ModuleExport*>(dlsym(module, "ModuleExports"));
    const FARPROC listed = FindExport(table, name);
    return listed != nullptr ? listed : reinterpret_cast<FARPROC>(dlsym(module, name));
}

HMODULE AfxLoadLibrary(LPCTSTR moduleName)
{
    if (BuiltInModule* const ours = BuiltInModule::Find(moduleName))
        return ours->Handle();
    try {
        if (NamedDisplay().empty() && !HasWindowLibrary())
            return nullptr;
        const std::string path = std::string(ModuleFolder()) + '/' + NativeName(ToUtf8(moduleName));
        void* const module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
        static constinit bool isReported = false;
        if (module == nullptr && !std::exchange(isReported, true))
            WriteToStandardError(std::string("StyleAtlas: no window can be shown: ") + dlerror() + '\n');
        return static_cast<HMODULE>(module);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

BOOL FreeLibrary(HMODULE module)
{
    return module != nullptr && (BuiltInModule::Of(module) != nullptr || dlclose(module) == 0) ? TRUE : FALSE;
}
