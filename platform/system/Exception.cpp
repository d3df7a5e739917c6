#include <afx.h>

namespace
{

// Thrown when there may be no memory for an exception, so it stands ready.
template <class Exception> [[noreturn]] void ThrowStanding()
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
    ThrowStanding<CMemoryException>();
}

void AfxThrowInvalidArgException()
{
    ThrowStanding<CInvalidArgException>();
}

void AfxThrowFileException(CFileException::Cause cause, LONG osError, LPCTSTR fileName)
{
    throw new CFileException(cause, osError, fileName);
}

void AfxThrowArchiveException(int cause, LPCTSTR fileName)
{
    throw new CArchiveException(cause, fileName);
}
