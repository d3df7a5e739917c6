#include "Descriptors.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/eventfd.h>
#include <unistd.h>

StandardDescriptors::StandardDescriptors() noexcept
{
    const int error = errno;
    for (int number = 0; number < Count; ++number) {
        if (fcntl(number, F_GETFD) < 0 && errno == EBADF)
            m_occupied[static_cast<std::size_t>(number)] = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    }
    errno = error;
}

StandardDescriptors::~StandardDescriptors()
{
    const int error = errno;
    for (const int number : m_occupied) {
        if (number >= 0)
            close(number);
    }
    errno = error;
}

Descriptor::~Descriptor()
{
    const int error = errno;
    if (m_number >= 0)
        close(m_number);
    errno = error;
}

int OpenAt(int folder, const char* path, int flags, mode_t mode)
{
    const StandardDescriptors descriptors;
    return openat(folder, path, flags | O_CLOEXEC, mode);
}

int OpenFile(const char* path, int flags, mode_t mode)
{
    return OpenAt(AT_FDCWD, path, flags, mode);
}

Folder OpenFolder(const std::string& path)
{
    Descriptor file(OpenFile(path.c_str(), O_RDONLY | O_DIRECTORY));
    Folder folder(file ? fdopendir(file.Get()) : nullptr, closedir);
    if (folder)
        file.Release();
    return folder;
}
