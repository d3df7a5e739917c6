// The framework's files and archives.
#pragma once

#include <afxobj.h>

#include <bit>
#include <cstring>
#include <memory>

// A file, opened by a drive path or a native one. All errors but those of Open raise the file exception.
class PLATFORM_API CFile : public CObject
{
public:
    enum OpenFlags : UINT { modeRead = 0x0000, modeWrite = 0x0001, modeCreate = 0x1000 };

    CFile() = default;
    ~CFile() override; // closes, and ignores errors

    // For reading, opens regular files only, so that no device or pipe can block the caller. modeCreate
    // truncates an existing file. False if the file can't be opened.
    virtual BOOL Open(LPCTSTR lpszFileName, UINT nOpenFlags);
    virtual UINT Read(void* lpBuf, UINT nCount); // fewer bytes only at the end of the file
    virtual void Write(const void* lpBuf, UINT nCount);
    virtual void Close();
    virtual void Abort(); // closes, and raises nothing
    CString GetFilePath() const { return m_strFileName; }

protected:
    static constexpr int hFileNull = -1;

    static constexpr UINT newFileMode = 0666; // less the umask

    BOOL OpenNative(const std::string& path, int flags, UINT mode = newFileMode);
    [[noreturn]] void ThrowSystemError(int error) const;

    int m_hFile = hFileNull;
    CString m_strFileName;
};

// Buffered, little-endian serialization to or from a file, which it doesn't own. A storing archive that isn't
// closed is flushed on destruction, unless it was constructed with bNoFlushOnDelete.
class PLATFORM_API CArchive
{
public:
    enum Mode : UINT { store = 0, load = 1, bNoFlushOnDelete = 2 };

    CArchive(CFile* pFile, UINT nMode, int nBufSize = 4096);
    CArchive(const CArchive&) = delete;
    CArchive& operator=(const CArchive&) = delete;
    ~CArchive();

    BOOL IsStoring() const { return (m_nMode & load) == 0; }

    void Close(); // flushes, and detaches the file

    // Raw bytes. One comparison covers the wrong direction too, in which there is neither room nor data. A
    // read past the end of the file raises endOfFile.
    void Write(const void* lpBuf, UINT nMax)
    {
        if (m_lpWriteEnd - m_lpBufCur < static_cast<std::ptrdiff_t>(nMax))
            return WriteThrough(static_cast<const BYTE*>(lpBuf), nMax);
        std::memcpy(m_lpBufCur, lpBuf, nMax);
        m_lpBufCur += nMax;
    }
    void EnsureRead(void* lpBuf, UINT nCount)
    {
        if (m_lpReadEnd - m_lpBufCur < static_cast<std::ptrdiff_t>(nCount))
            return ReadThrough(static_cast<BYTE*>(lpBuf), nCount);
        std::memcpy(lpBuf, m_lpBufCur, nCount);
        m_lpBufCur += nCount;
    }

    CArchive& operator<<(BYTE by) { return Put(by); }
    CArchive& operator<<(WORD w) { return Put(w); }
    CArchive& operator<<(short w) { return Put(w); }
    CArchive& operator<<(DWORD dw) { return Put(dw); }
    CArchive& operator<<(int i) { return Put(i); }
    CArchive& operator<<(bool b) { return Put(static_cast<BYTE>(b ? 1 : 0)); }
    CArchive& operator>>(BYTE& by) { return Get(by); }
    CArchive& operator>>(WORD& w) { return Get(w); }
    CArchive& operator>>(short& w) { return Get(w); }
    CArchive& operator>>(DWORD& dw) { return Get(dw); }
    CArchive& operator>>(int& i) { return Get(i); }
    CArchive& operator>>(bool& b)
    {
        BYTE by = 0;
        Get(by);
        b = by != 0;
        return *this;
    }

private:
    static_assert(std::endian::native == std::endian::little,
                  "values are copied without conversion to the stream, which is little-endian");

    // The slow paths, when the buffer is full or used up.
    void Flush();
    void WriteThrough(const BYTE* from, UINT nCount);
    void ReadThrough(BYTE* to, UINT nCount);

    template <class Integer> CArchive& Put(Integer value)
    {
        Write(&value, sizeof value);
        return *this;
    }

    // Leaves the value unchanged at the end of the file.
    template <class Integer> CArchive& Get(Integer& value)
    {
        Integer whole{};
        EnsureRead(&whole, sizeof whole);
        value = whole;
        return *this;
    }

    UINT m_nMode;
    CFile* m_pFile;
    int m_nBufSize;
    std::unique_ptr<BYTE[]> m_lpBufStart;
    BYTE* m_lpBufCur;   // the next byte to read or to write
    BYTE* m_lpReadEnd;  // of the bytes read; m_lpBufStart when storing
    BYTE* m_lpWriteEnd; // of the buffer; m_lpBufStart when loading
};
