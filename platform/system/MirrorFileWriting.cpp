// The bytes on their way into a mirror file: they come in small pieces, and a call of the system for each
// would take as long as all else that is done to save them.
#include "Memory.h"

#include <afxpriv.h>

namespace
{

constexpr std::size_t pieceSize = 1 << 16;

} // namespace

void CMirrorFile::Write(const void* lpBuf, UINT nCount)
{
    if (m_gathered.size() + nCount > pieceSize)
        Flush();
    if (nCount >= pieceSize)
        return CFile::Write(lpBuf, nCount);
    const auto* const bytes = static_cast<const BYTE*>(lpBuf);
    WithFrameworkMemory([&] {
        m_gathered.reserve(pieceSize);
        m_gathered.insert(m_gathered.end(), bytes, bytes + nCount);
    });
}

void CMirrorFile::Flush()
{
    if (!m_gathered.empty())
        CFile::Write(m_gathered.data(), static_cast<UINT>(m_gathered.size()));
    m_gathered.clear();
}
