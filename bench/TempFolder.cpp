// Where the folder is made and that it goes.
#include "TempFolder.h"

#include <cerrno>
#include <cstdlib>
#include <unistd.h>

namespace
{

constexpr const char* memoryFolder = "/dev/shm";

} // namespace

namespace bench
{

TempFolder::TempFolder() : m_inMemory(access(memoryFolder, W_OK | X_OK) == 0)
{
    const std::filesystem::path parent =
        m_inMemory ? std::filesystem::path(memoryFolder) : std::filesystem::temp_directory_path();
    std::string name = parent / "styleatlas-bench-XXXXXX";
    if (mkdtemp(name.data()) == nullptr)
        throw std::filesystem::filesystem_error("cannot make a folder", name,
                                                std::error_code(errno, std::generic_category()));
    m_path = name;
}

TempFolder::~TempFolder()
{
    std::error_code ignored; // a folder that stays behind spoils no result
    std::filesystem::remove_all(m_path, ignored);
}

} // namespace bench
