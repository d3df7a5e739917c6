// The framework's array of pointers. It doesn't own what they point to.
#pragma once

#include <afx.h>

class PLATFORM_API CPtrArray : public CObject
{
public:
    CPtrArray() = default;
    ~CPtrArray() override;

    INT_PTR GetSize() const { return m_nSize; }
    bool IsEmpty() const { return m_nSize == 0; }

    // Truncates the array, or grows it with nulls. Raises the invalid argument exception for a negative size
    // and the memory exception when out of memory, and leaves the array unchanged. nGrowBy is the minimum
    // number of elements by which the capacity grows, if it does.
    void SetSize(INT_PTR nNewSize, INT_PTR nGrowBy = -1);

    // An index outside the array raises the invalid argument exception. SetAtGrow grows the array instead,
    // and raises the exception for a negative index only.
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

    // Appends, and returns the index.
    INT_PTR Add(void* newElement);

    // The elements: valid until the array is resized or destroyed, null for an empty one.
    void* const* GetData() const { return m_pData; }

private:
    void Reserve(INT_PTR nNewSize, INT_PTR nGrowBy);

    void** m_pData = nullptr;
    int m_nSize = 0; // narrow, as a table has an array in each of its rows
    int m_nMaxSize = 0;
};
