// The class framework's objects and exceptions: its names, virtual slots and contracts, as far as the library
// uses them.
#pragma once

#include <afxstr.h>
#include <windows.h>

class PLATFORM_API CArchive;
class CDumpContext;

// Run-time information about a class.
struct CRuntimeClass {
    const char* m_lpszClassName;
    int m_nObjectSize;
};

class PLATFORM_API CObject
{
public:
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;

    virtual CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject();
    virtual void Serialize(CArchive& ar);
    virtual void AssertValid() const;
    virtual void Dump(CDumpContext& dc) const;

    // Raises the memory exception when out of memory.
    static void* operator new(std::size_t size);
    static void operator delete(void* object) noexcept;

protected:
    CObject() = default;
};

// Exceptions are thrown as pointers. A handler must call Delete, which frees those on the heap.
class PLATFORM_API CException : public CObject
{
public:
    void Delete();

protected:
    explicit CException(bool bAutoDelete) : m_bAutoDelete(bAutoDelete) {}

private:
    bool m_bAutoDelete;
};

class PLATFORM_API CMemoryException : public CException
{
public:
    CMemoryException() : CException(false) {}
};

class PLATFORM_API CInvalidArgException : public CException
{
public:
    CInvalidArgException() : CException(false) {}
};

class PLATFORM_API CFileException : public CException
{
public:
    enum Cause { none, genericException, fileNotFound, accessDenied, diskFull, hardIO };

    CFileException(Cause cause, LONG osError, CString fileName)
        : CException(true), m_cause(cause), m_lOsError(osError), m_strFileName(std::move(fileName))
    {
    }

    Cause m_cause;
    LONG m_lOsError; // errno
    CString m_strFileName;
};

class PLATFORM_API CArchiveException : public CException
{
public:
    enum Cause { none, genericException, readOnly, endOfFile, writeOnly };

    CArchiveException(int cause, CString fileName)
        : CException(true), m_cause(cause), m_strFileName(std::move(fileName))
    {
    }

    int m_cause;
    CString m_strFileName;
};

[[noreturn]] PLATFORM_API void AfxThrowMemoryException();
[[noreturn]] PLATFORM_API void AfxThrowInvalidArgException();
[[noreturn]] PLATFORM_API void AfxThrowFileException(CFileException::Cause cause, LONG osError,
                                                     LPCTSTR fileName);
[[noreturn]] PLATFORM_API void AfxThrowArchiveException(int cause, LPCTSTR fileName);
