// The numbers of open files. A host may have closed its standard input, output or error; a file of ours with
// such a number would take what the host prints.
#pragma once

#include <array>
#include <sys/types.h>

// As long as it lives, the numbers 0 to 2 are taken by something that reads and writes nothing, where the
// host has left them free; so every file that is opened meanwhile gets a higher one. errno stays as it is.
class StandardDescriptors
{
public:
    StandardDescriptors() noexcept;
    StandardDescriptors(const StandardDescriptors&) = delete;
    StandardDescriptors& operator=(const StandardDescriptors&) = delete;
    ~StandardDescriptors();

private:
    static constexpr int Count = 3;

    std::array<int, Count> m_taken{-1, -1, -1};
};

// The system's openat, always with O_CLOEXEC, and with a number above 2.
int OpenAt(int folder, const char* path, int flags, mode_t mode = 0);
int OpenFile(const char* path, int flags, mode_t mode = 0); // from the current folder
