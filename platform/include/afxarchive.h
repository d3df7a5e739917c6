// The framework's archives.
#pragma once

#include <afxfile.h>

#include <array>
#include <bit>
#include <cstring>
#include <memory>

// Buffered, little-endian serialization to or from a file, which it doesn't own. A storing archive is
// flushed on destruction too, unless it was constructed with bNoFlushOnDelete.
class PLATFORM_API CArchive
{
public:
    enum Mode : UINT { store = 0, load = 1, bNoFlushOnDelete = 2 };

    CArchive(CFile* pFile, UINT nMode, int nBufSize = 4096);
    CArchive(const CArchive&) = delete;
    CArchive& operator=(const CArchive&) = delete;
    ~CArchive();

    BOOL IsStoring() const { return (m_nMode & load) == 0; }

    void Close(); // flushes; the file stays open

    // The number of bytes that a load has taken out; at the end of the file, all of them.
    ULONGLONG GetPosition() const { return m_nBytesRead - static_cast<ULONGLONG>(m_lpReadEnd - m_lpBufCur); }

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

    // Integers one behind the other, in one comparison: as with << or >> for each. A read past the end of the
    // file changes none of them.
    template <class... Integers> void WriteAll(Integers... values)
    {
        std::array<BYTE, (sizeof(Integers) + ...)> beyond;
        const bool fits = m_lpWriteEnd - m_lpBufCur >= static_cast<std::ptrdiff_t>(beyond.size());
        BYTE* at = fits ? m_lpBufCur : beyond.data();
        ((std::memcpy(at, &values, sizeof values), at += sizeof values), ...);
        if (fits)
            m_lpBufCur = at;
        else
            WriteThrough(beyond.data(), static_cast<UINT>(beyond.size()));
    }
    template <class... Integers> void ReadAll(Integers&... values)
    {
        std::array<BYTE, (sizeof(Integers) + ...)> beyond;
        const BYTE* at = m_lpBufCur;
        if (m_lpReadEnd - m_lpBufCur >= static_cast<std::ptrdiff_t>(beyond.size()))
            m_lpBufCur += beyond.size();
        else
            ReadThrough(beyond.data(), static_cast<UINT>(beyond.size())), at = beyond.data();
        ((std::memcpy(&values, at, sizeof values), at += sizeof values), ...);
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
    ULONGLONG m_nBytesRead = 0; // into the buffer
    std::unique_ptr<BYTE[]> m_lpBufStart;
    BYTE* m_lpBufCur;   // the next byte to read or to write
    BYTE* m_lpReadEnd;  // of the bytes read; m_lpBufStart when storing
    BYTE* m_lpWriteEnd; // of the buffer; m_lpBufStart when loading
};
