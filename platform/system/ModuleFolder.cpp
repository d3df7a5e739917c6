#include "ModuleFolder.h"

#include <dlfcn.h>
#include <filesystem>

const std::string& ModuleFolder()
{
    static const std::string folder = [] {
        Dl_info info{};
        const auto* const here = reinterpret_cast<const void*>(&ModuleFolder);
        if (dladdr(here, &info) == 0 || info.dli_fname == nullptr)
            return std::string(".");
        std::error_code error;
        const std::filesystem::path module = std::filesystem::canonical(info.dli_fname, error);
        return (error ? std::filesystem::path(info.dli_fname) : module).parent_path().string();
    }();
    return folder;
}
