// The framework's files and archives.
#pragma once

#include <afxobj.h>

#include <bit>
#include <cstring>
#include <memory>

// A file, opened by a path of the drives or a native one. Any failure but that of Open raises the file
// exception.
class PLATFORM_API CFile : public CObject
{
public:
    enum OpenFlags : UINT { modeRead = 0x0000, modeWrite = 0x0001, modeCreate = 0x1000 };

    CFile() = default;
    ~CFile() override; // closes; what fails then is lost

    // Reading takes ordinary files only, so that no device or pipe can hold up the caller. modeCreate empties
    // a file that exists. False when the file can't be opened.
    virtual BOOL Open(LPCTSTR lpszFileName, UINT nOpenFlags);
    virtual UINT Read(void* lpBuf, UINT nCount); // fewer bytes only at the end of the file
    virtual void Write(const void* lpBuf, UINT nCount);
    virtual ULONGLONG GetLength() const; // in bytes
    virtual void Close();
    virtual void Abort(); // closes whatever happens, and raises nothing
    CString GetFilePath() const { return m_strFileName; }

protected:
    static constexpr int hFileNull = -1;

    static constexpr UINT newFileMode = 0666; // less what the user's mask takes away

    BOOL OpenNative(const std::string& path, int flags, UINT mode = newFileMode);
    [[noreturn]] void ThrowSystemError(int error) const;

    int m_hFile = hFileNull;
    CString m_strFileName;
};

// A byte buffer over a file: integers go in and out in little-endian order, one after the other. It doesn't
// own the file. A store that isn't closed is flushed on destruction, unless bNoFlushOnDelete was asked for.
class PLATFORM_API CArchive
{
public:
    enum Mode : UINT { store = 0, load = 1, bNoFlushOnDelete = 2 };

    CArchive(CFile* pFile, UINT nMode, int nBufSize = 4096);
    CArchive(const CArchive&) = delete;
    CArchive& operator=(const CArchive&) = delete;
    ~CArchive();

    BOOL IsLoading() const { return (m_nMode & load) != 0; }
    BOOL IsStoring() const { return (m_nMode & load) == 0; }

    void Flush(); // a store: empties the buffer into the file
    void Close(); // flushes and lets the file go

    // Bytes as they are, with one comparison: of the wrong direction there is neither room nor anything to
    // read. Where the file has fewer, endOfFile is raised.
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
                  "the stream is little-endian, and so is the machine");

    // What doesn't fit into the buffer, or isn't all there.
    void WriteThrough(const BYTE* from, UINT nCount);
    void ReadThrough(BYTE* to, UINT nCount);

    template <class Integer> CArchive& Put(Integer value)
    {
        Write(&value, sizeof value);
        return *this;
    }

    // A value that isn't all there is not touched.
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
    BYTE* m_lpReadEnd;  // of the bytes read; a store has none
    BYTE* m_lpWriteEnd; // of the buffer; a load has no room
};
