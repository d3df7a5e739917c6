// A temporary folder for what a program writes while it measures.
#pragma once

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <unistd.h>

namespace bench
{

enum class Storage { Memory, Disk };

// Removed with the object. In memory if there is such a folder; on disk in the system's folder for temporary
// files, which TMPDIR can name. Raises std::filesystem::filesystem_error if it can't be created.
class TempFolder
{
public:
    explicit TempFolder(Storage storage = Storage::Memory)
        : m_inMemory(storage == Storage::Memory && access(memoryFolder, W_OK | X_OK) == 0)
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
        std::error_code ignored; // a leftover folder affects no result
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
