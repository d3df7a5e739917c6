// A folder of a program's own for what it writes while it measures.
#pragma once

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <unistd.h>

namespace bench
{

// In memory where the system has a place for that, so that no disk is measured. Gone with the object. A
// folder that can't be made raises std::filesystem::filesystem_error.
class TempFolder
{
public:
    TempFolder() : m_inMemory(access(memoryFolder, W_OK | X_OK) == 0)
    {
        std::string name =
            (m_inMemory ? std::filesystem::path(memoryFolder) : std::filesystem::temp_directory_path()) /
            "bench-XXXXXX";
        if (mkdtemp(name.data()) == nullptr)
            throw std::filesystem::filesystem_error("cannot make a folder", name,
                                                    std::error_code(errno, std::generic_category()));
        m_path = name;
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder()
    {
        std::error_code ignored; // a folder that stays behind spoils no result
        std::filesystem::remove_all(m_path, ignored);
    }

    const std::filesystem::path& Path() const { return m_path; }
    const char* Place() const { return m_inMemory ? "in memory" : "on disk"; }

private:
    static constexpr const char* memoryFolder = "/dev/shm";

    bool m_inMemory;
    std::filesystem::path m_path;
};

} // namespace bench
