#include <windows.h>

#include "Unicode.h"

#include <dlfcn.h>
#include <new>
#include <string>
#include <string_view>

namespace
{

// "name.dll" is libname.so here.
std::string NativeName(std::string name)
{
    constexpr std::string_view ending = ".dll";
    if (name.ends_with(ending))
        name.erase(name.size() - ending.size());
    return "lib" + name + ".so";
}

std::string FolderOfThisModule()
{
    Dl_info info{};
    if (dladdr(reinterpret_cast<const void*>(&FolderOfThisModule), &info) == 0 || info.dli_fname == nullptr)
        return {};
    const std::string path = info.dli_fname;
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

} // namespace

HMODULE LoadLibraryW(LPCWSTR fileName)
{
    try {
        const std::string name = NativeName(ToUtf8(fileName));
        void* module = dlopen(name.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (module == nullptr) {
            const std::string folder = FolderOfThisModule();
            if (!folder.empty())
                module = dlopen((folder + name).c_str(), RTLD_NOW | RTLD_LOCAL);
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
    const auto* entry = static_cast<const ModuleExport*>(dlsym(module, "ModuleExports"));
    for (; entry != nullptr && entry->Name != nullptr; ++entry) {
        if (std::string_view(entry->Name) == name)
            return reinterpret_cast<FARPROC>(entry->Address);
    }
    return reinterpret_cast<FARPROC>(dlsym(module, name));
}
