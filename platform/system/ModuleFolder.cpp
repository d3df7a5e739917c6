#include "ModuleFolder.h"

#include <algorithm>
#include <climits>
#include <dlfcn.h>
#include <filesystem>
#include <string>

namespace
{

// Trivially destructible, as it is also used while static objects are being destroyed.
struct FolderName {
    FolderName()
    {
        Dl_info info{};
        const auto* const here = reinterpret_cast<const void*>(&ModuleFolder);
        if (dladdr(here, &info) == 0 || info.dli_fname == nullptr)
            return;
        std::error_code error;
        const std::filesystem::path module = std::filesystem::canonical(info.dli_fname, error);
        const std::string folder = (error ? std::filesystem::path(info.dli_fname) : module).parent_path();
        if (folder.size() < sizeof Text)
            std::copy_n(folder.c_str(), folder.size() + 1, Text);
    }

    char Text[PATH_MAX] = ".";
};

} // namespace

const char* ModuleFolder()
{
    static const FolderName folder;
    return folder.Text;
}
