// File descriptors. A host may have closed its standard input, output or error: a file of ours must not get
// one of these numbers, or it would receive what the host prints.
#pragma once

#include <array>
#include <dirent.h>
#include <memory>
#include <string>
#include <sys/types.h>
#include <utility>

// Occupies those of the descriptors 0 to 2 that are free, so that files opened during its lifetime get higher
// ones. Keeps errno.
class StandardDescriptors
{
public:
    StandardDescriptors() noexcept;
    StandardDescriptors(const StandardDescriptors&) = delete;
    StandardDescriptors& operator=(const StandardDescriptors&) = delete;
    ~StandardDescriptors();

private:
    static constexpr int Count = 3;

    std::array<int, Count> m_occupied{-1, -1, -1};
};

// The system's openat and open, always with O_CLOEXEC, for a descriptor above 2.
int OpenAt(int folder, const char* path, int flags, mode_t mode = 0);
int OpenFile(const char* path, int flags, mode_t mode = 0);

// Owns a descriptor, -1 for none. Keeps errno when it closes it.
class Descriptor
{
public:
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }
    ~Descriptor();

    explicit operator bool() const { return m_number >= 0; }
    int Get() const { return m_number; }
    int Release() { return std::exchange(m_number, -1); }

private:
    int m_number;
};

using Folder = std::unique_ptr<DIR, int (*)(DIR*)>;

// Opens a folder for reading its entries; null, with errno, on failure.
Folder OpenFolder(const std::string& path);
