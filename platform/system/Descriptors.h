// File descriptors. A host may have closed its standard input, output or error: a file of ours must not get
// one of these numbers, or it would receive what the host prints.
#pragma once

#include <array>
#include <sys/types.h>

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
