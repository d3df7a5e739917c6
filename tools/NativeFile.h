// Files of the framework by their native paths, and its exceptions as those of the C++ library.
#pragma once

#include <afx.h>

#include <new>
#include <stdexcept>
#include <string>

namespace atlaslayout
{

class NativeFile : public CFile
{
public:
    // Opens a file for reading. Throws std::runtime_error with a printable reason unless it is a regular file
    // that can be read.
    explicit NativeFile(const std::string& path);
};

// The reason in words; deletes the exception.
std::string TakeReason(CException* error);

// Calls work(), and throws std::runtime_error with a printable reason for an exception of the framework.
template <class Work> void WithStandardErrors(Work work)
{
    try {
        work();
    } catch (CException* error) {
        throw std::runtime_error{TakeReason(error)};
    }
}

} // namespace atlaslayout
