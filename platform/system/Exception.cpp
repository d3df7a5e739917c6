#include <afx.h>

namespace
{

// For exceptions that are thrown when memory may have run out.
template <class Exception> [[noreturn]] void ThrowPreallocated()
{
    static Exception exception;
    throw &exception;
}

} // namespace

void CException::Delete()
{
    if (m_bAutoDelete)
        delete this;
}

void AfxThrowMemoryException()
{
    ThrowPreallocated<CMemoryException>();
}

void AfxThrowInvalidArgException()
{
    ThrowPreallocated<CInvalidArgException>();
}

void AfxThrowFileException(CFileException::Cause cause, LONG osError, LPCTSTR fileName)
{
    throw new CFileException(cause, osError, fileName);
}

void AfxThrowArchiveException(int cause, LPCTSTR fileName)
{
    throw new CArchiveException(cause, fileName);
}
