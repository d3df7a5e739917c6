// The framework's array of pointers. It owns its array and nothing that the pointers point to.
#pragma once

#include <afx.h>

class PLATFORM_API CPtrArray : public CObject
{
public:
    CPtrArray() = default;
    ~CPtrArray() override;

    INT_PTR GetSize() const { return m_nSize; }
    bool IsEmpty() const { return m_nSize == 0; }

    // Cuts the array, or grows it with nulls. A negative size raises the invalid argument exception, one that
    // there is no memory for the memory exception; the array is unchanged then. nGrowBy is the least number
    // of places by which the array grows from now on, -1 leaves it.
    void SetSize(INT_PTR nNewSize, INT_PTR nGrowBy = -1);
    void RemoveAll() { SetSize(0); }

    // A position outside the array raises the invalid argument exception; SetAtGrow grows the array to the
    // position and refuses a negative one alone.
    void* GetAt(INT_PTR nIndex) const
    {
        if (nIndex < 0 || nIndex >= m_nSize)
            AfxThrowInvalidArgException();
        return m_pData[nIndex];
    }
    void SetAt(INT_PTR nIndex, void* newElement)
    {
        if (nIndex < 0 || nIndex >= m_nSize)
            AfxThrowInvalidArgException();
        m_pData[nIndex] = newElement;
    }
    void SetAtGrow(INT_PTR nIndex, void* newElement);

    // Appends, and gives the position.
    INT_PTR Add(void* newElement);

    // The elements; good until the array is grown or destroyed, null while there was never one.
    void* const* GetData() const { return m_pData; }
    void** GetData() { return m_pData; }

private:
    void Reserve(INT_PTR nNewSize, INT_PTR nGrowBy);

    void** m_pData = nullptr;
    INT_PTR m_nSize = 0;
    INT_PTR m_nMaxSize = 0;
    INT_PTR m_nGrowBy = 0;
};
