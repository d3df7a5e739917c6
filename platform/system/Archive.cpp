#include <afx.h>

#include <algorithm>
#include <new>

namespace
{

constexpr int minBufferSize = 128;

} // namespace

CArchive::CArchive(CFile* pFile, UINT nMode, int nBufSize)
    : m_nMode(nMode), m_pFile(pFile), m_nBufSize(std::max(nBufSize, minBufferSize)),
      m_lpBufStart(new (std::nothrow) BYTE[m_nBufSize]), m_lpBufCur(m_lpBufStart.get()),
      m_lpReadEnd(m_lpBufCur), m_lpWriteEnd(m_lpBufCur)
{
    if (!m_lpBufStart)
        AfxThrowMemoryException();
    if (IsStoring())
        m_lpWriteEnd += m_nBufSize;
}

CArchive::~CArchive()
{
    if ((m_nMode & bNoFlushOnDelete) != 0)
        return;
    try {
        Flush();
    } catch (CException* e) {
        e->Delete(); // a destructor has no way to report it
    }
}

void CArchive::Flush()
{
    if (!IsStoring() || m_lpBufCur == m_lpBufStart.get())
        return;
    m_pFile->Write(m_lpBufStart.get(), static_cast<UINT>(m_lpBufCur - m_lpBufStart.get()));
    m_lpBufCur = m_lpBufStart.get();
}

void CArchive::Close()
{
    Flush();
}

void CArchive::WriteThrough(const BYTE* from, UINT nCount)
{
    if (!IsStoring())
        AfxThrowArchiveException(CArchiveException::readOnly, m_pFile->GetFilePath());
    while (nCount > 0) {
        if (m_lpBufCur == m_lpWriteEnd)
            Flush();
        const UINT count = std::min(nCount, static_cast<UINT>(m_lpWriteEnd - m_lpBufCur));
        m_lpBufCur = std::copy_n(from, count, m_lpBufCur);
        from += count;
        nCount -= count;
    }
}

void CArchive::ReadThrough(BYTE* to, UINT nCount)
{
    if (IsStoring())
        AfxThrowArchiveException(CArchiveException::writeOnly, m_pFile->GetFilePath());
    while (nCount > 0) {
        if (m_lpBufCur == m_lpReadEnd) {
            m_lpBufCur = m_lpReadEnd = m_lpBufStart.get();
            const UINT read = m_pFile->Read(m_lpBufCur, static_cast<UINT>(m_nBufSize));
            m_lpReadEnd += read;
            m_nBytesRead += read;
            if (m_lpBufCur == m_lpReadEnd)
                AfxThrowArchiveException(CArchiveException::endOfFile, m_pFile->GetFilePath());
        }
        const UINT count = std::min(nCount, static_cast<UINT>(m_lpReadEnd - m_lpBufCur));
        to = std::copy_n(m_lpBufCur, count, to);
        m_lpBufCur += count;
        nCount -= count;
    }
}
