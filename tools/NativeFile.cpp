#include "NativeFile.h"

#include "Texts.h"

#include <cerrno>
#include <cstring>

#include <fcntl.h>

namespace atlaslayout
{

NativeFile::NativeFile(const std::string& path)
{
    if (OpenNative(path, O_RDONLY) == FALSE)
        throw std::runtime_error{errno == EINVAL ? Text("not a regular file") : std::strerror(errno)};
}

std::string TakeReason(CException* error)
{
    int number = 0;
    if (const auto* const file = dynamic_cast<CFileException*>(error))
        number = file->m_lOsError;
    else if (dynamic_cast<CMemoryException*>(error) != nullptr)
        number = ENOMEM;
    error->Delete();
    return number != 0 ? std::strerror(number) : Text("damaged");
}

} // namespace atlaslayout
