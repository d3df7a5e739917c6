// The write buffer of a mirror file. Its bytes come in small pieces; a system call for each would double the
// time of a save.
#include "Memory.h"

#include <afxpriv.h>

namespace
{

constexpr std::size_t pieceSize = 1 << 16;

} // namespace

void CMirrorFile::Write(const void* lpBuf, UINT nCount)
{
    if (m_strContents.size() + nCount > pieceSize)
        HandOver();
    WithFrameworkMemory([&] { m_strContents.append(static_cast<const char*>(lpBuf), nCount); });
}

// A file that is overwritten in place stays untouched until Close, when its new contents are complete.
void CMirrorFile::HandOver()
{
    if (m_bOverwrites)
        return;
    if (!m_strContents.empty())
        CFile::Write(m_strContents.data(), static_cast<UINT>(m_strContents.size()));
    m_strContents.clear();
}
