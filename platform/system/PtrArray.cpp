#include <afxcoll.h>

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace
{

constexpr INT_PTR minGrowth = 4;
constexpr INT_PTR maxElements = std::numeric_limits<int>::max();

} // namespace

CPtrArray::~CPtrArray()
{
    std::free(m_pData);
}

void CPtrArray::SetSize(INT_PTR nNewSize, INT_PTR nGrowBy)
{
    if (nNewSize < 0)
        AfxThrowInvalidArgException();
    if (nNewSize > m_nMaxSize)
        Reserve(nNewSize, nGrowBy);
    if (nNewSize == 0) {
        std::free(m_pData);
        m_pData = nullptr;
        m_nSize = m_nMaxSize = 0;
        return;
    }
    if (nNewSize > m_nSize)
        std::fill(m_pData + m_nSize, m_pData + nNewSize, nullptr);
    m_nSize = static_cast<int>(nNewSize);
}

// An array that is appended to grows by half, which keeps the cost of copying linear; the first allocation is
// exact.
void CPtrArray::Reserve(INT_PTR nNewSize, INT_PTR nGrowBy)
{
    const INT_PTR usual = m_nMaxSize > 0 ? std::max<INT_PTR>(minGrowth, m_nMaxSize / 2) : 0;
    const INT_PTR growth = std::max(nGrowBy, std::min(usual, maxElements - m_nMaxSize));
    if (nNewSize > maxElements || growth > maxElements - m_nMaxSize)
        AfxThrowMemoryException();
    const INT_PTR newMax = std::max(nNewSize, m_nMaxSize + growth);
    void* const data = std::realloc(m_pData, static_cast<std::size_t>(newMax) * sizeof(void*));
    if (data == nullptr)
        AfxThrowMemoryException();
    m_pData = static_cast<void**>(data);
    m_nMaxSize = static_cast<int>(newMax);
}

void CPtrArray::SetAtGrow(INT_PTR nIndex, void* newElement)
{
    if (nIndex < 0)
        AfxThrowInvalidArgException();
    if (nIndex >= maxElements)
        AfxThrowMemoryException();
    if (nIndex >= m_nSize)
        SetSize(nIndex + 1);
    m_pData[nIndex] = newElement;
}

INT_PTR CPtrArray::Add(void* newElement)
{
    const INT_PTR index = m_nSize;
    SetAtGrow(index, newElement);
    return index;
}
