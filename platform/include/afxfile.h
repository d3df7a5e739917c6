// The framework's files.
#pragma once

#include <afxobj.h>

#include <string>

// A file, opened by a drive path or a native one. All errors but those of Open raise the file exception.
class PLATFORM_API CFile : public CObject
{
public:
    enum OpenFlags : UINT { modeRead = 0x0000, modeWrite = 0x0001, modeCreate = 0x1000 };

    CFile() = default;
    ~CFile() override; // closes, and ignores errors

    // Opens a file that isn't open yet. For reading, opens regular files only, so that no device or pipe can
    // block the caller. modeCreate truncates an existing file. False if the file can't be opened.
    virtual BOOL Open(LPCTSTR lpszFileName, UINT nOpenFlags);
    virtual UINT Read(void* lpBuf, UINT nCount); // fewer bytes only at the end of the file
    virtual void Write(const void* lpBuf, UINT nCount);
    virtual ULONGLONG GetLength() const; // in bytes
    virtual void Close();
    virtual void Abort(); // closes, and raises nothing
    CString GetFilePath() const { return m_strFileName; }

protected:
    enum { hFileNull = -1 }; // not a variable, whose symbol would keep the library loaded

    static constexpr UINT newFileMode = 0666; // less the umask

    BOOL OpenNative(const std::string& path, int flags, UINT mode = newFileMode);
    [[noreturn]] void ThrowSystemError(int error) const;

    int m_hFile = hFileNull;
    CString m_strFileName;
};
