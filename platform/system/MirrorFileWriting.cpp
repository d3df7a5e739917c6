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
    if (m_strContents.size() + nCount > pieceSize)
        HandOver();
    WithFrameworkMemory([&] {
        if (m_strContents.empty())
            m_strContents.reserve(pieceSize);
        m_strContents.append(static_cast<const char*>(lpBuf), nCount);
    });
}

// Nothing of a file that is overwritten goes out before all of it is known.
void CMirrorFile::HandOver()
{
    if (m_bOverwrites)
        return;
    if (!m_strContents.empty())
        CFile::Write(m_strContents.data(), static_cast<UINT>(m_strContents.size()));
    m_strContents.clear();
}
