// A folder of a program's own for what it writes while it measures.
#pragma once

#include <filesystem>

namespace bench
{

// In memory where the system has a place for that, so that no disk is measured. Gone with the object. A
// folder that can't be made raises std::filesystem::filesystem_error.
class TempFolder
{
public:
    TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder();

    const std::filesystem::path& Path() const { return m_path; }
    const char* Place() const { return m_inMemory ? "in memory" : "on disk"; }

private:
    bool m_inMemory;
    std::filesystem::path m_path;
};

} // namespace bench
