// A prefix folder of a test's own, whole files in it, and variables of the environment.
#pragma once

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

namespace test
{

// Puts a variable of the environment to a value, null for none; at the end of its life to what it was before.
class ScopedVariable
{
public:
    ScopedVariable(const char* name, const char* value) : m_name(name)
    {
        if (const char* const before = std::getenv(name))
            m_before = before;
        Put(value);
    }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;
    ~ScopedVariable() { Put(m_before ? m_before->c_str() : nullptr); }

    void Put(const char* value) const { value != nullptr ? setenv(m_name, value, 1) : unsetenv(m_name); }

private:
    const char* m_name;
    std::optional<std::string> m_before;
};

// Makes an empty folder and has STYLEATLAS_PREFIX name it; at the end of its life the folder goes with all
// that is in it. One that can't be made raises std::system_error.
class TempPrefix
{
public:
    TempPrefix()
    {
        std::string folder = (std::filesystem::temp_directory_path() / "styleatlas-test-XXXXXX").string();
        if (mkdtemp(folder.data()) == nullptr)
            throw std::system_error(errno, std::generic_category(), folder);
        m_path = folder;
        m_variable.Put(folder.c_str());
    }
    TempPrefix(const TempPrefix&) = delete;
    TempPrefix& operator=(const TempPrefix&) = delete;
    ~TempPrefix()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    const std::filesystem::path& Path() const { return m_path; }

    // The native path of a path on drive C, with slashes and without the drive: Native("ProgramData/x").
    std::filesystem::path Native(std::string_view path = {}) const { return m_path / "drive_c" / path; }

    // Makes a folder of drive C with all folders above it, and gives its native path.
    std::filesystem::path MakeFolder(std::string_view path = {}) const
    {
        std::filesystem::create_directories(Native(path));
        return Native(path);
    }

private:
    std::filesystem::path m_path;
    ScopedVariable m_variable{"STYLEATLAS_PREFIX", nullptr};
};

// The bytes of a file; std::runtime_error where it can't be read.
inline std::string ReadWhole(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::runtime_error("cannot read " + path.string());
    return {std::istreambuf_iterator<char>(file), {}};
}

// Makes the file, or replaces its contents; std::runtime_error where it can't be written.
inline void WriteWhole(const std::filesystem::path& path, std::string_view bytes)
{
    std::ofstream file(path, std::ios::binary);
    if (!(file << bytes << std::flush))
        throw std::runtime_error("cannot write " + path.string());
}

// How many entries stand in a folder.
inline std::ptrdiff_t EntryCount(const std::filesystem::path& folder)
{
    return std::distance(std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator());
}

} // namespace test
