#include <afx.h>

#include <algorithm>
#include <new>

namespace
{

constexpr int leastBufferSize = 128; // holds every integer, with some to spare

} // namespace

CArchive::CArchive(CFile* pFile, UINT nMode, int nBufSize)
    : m_nMode(nMode), m_pFile(pFile), m_nBufSize(std::max(nBufSize, leastBufferSize)),
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
    if (m_pFile == nullptr || (m_nMode & bNoFlushOnDelete) != 0)
        return;
    try {
        Close();
    } catch (CException* e) {
        e->Delete(); // nobody is left to be told
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
    m_pFile = nullptr;
}

void CArchive::MakeRoom()
{
    if (!IsStoring())
        AfxThrowArchiveException(CArchiveException::readOnly, m_pFile->GetFilePath());
    Flush();
}

void CArchive::FillBuffer(UINT nBytesNeeded)
{
    if (!IsLoading())
        AfxThrowArchiveException(CArchiveException::writeOnly, m_pFile->GetFilePath());
    BYTE* const start = m_lpBufStart.get();
    const auto unread = static_cast<UINT>(m_lpReadEnd - m_lpBufCur);
    std::memmove(start, m_lpBufCur, unread);
    m_lpBufCur = start;
    m_lpReadEnd = start + unread;
    m_lpReadEnd += m_pFile->Read(m_lpReadEnd, static_cast<UINT>(m_nBufSize) - unread);
    if (static_cast<UINT>(m_lpReadEnd - m_lpBufCur) < nBytesNeeded)
        AfxThrowArchiveException(CArchiveException::endOfFile, m_pFile->GetFilePath());
}
