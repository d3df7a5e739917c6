// The framework's wide string: 16-bit characters, with the contents shared by copies until one is modified.
#pragma once

#include <memory>
#include <oleacc.h>
#include <string>
#include <utility>
#include <windows.h>

class PLATFORM_API CString
{
public:
    CString() = default;
    CString(LPCTSTR psz); // NOLINT(google-explicit-constructor): texts convert, as in the framework
    CString(LPCTSTR pch, int nLength);

    CString& operator+=(LPCTSTR psz);
    CString& operator+=(TCHAR ch);

    int GetLength() const { return m_text ? static_cast<int>(m_text->size()) : 0; }
    bool IsEmpty() const { return GetLength() == 0; }
    void Empty() { m_text.reset(); }

    // An index outside the text raises the invalid argument exception.
    TCHAR GetAt(int iChar) const;

    // The zero-terminated text, valid until the string is modified or destroyed.
    LPCTSTR GetString() const { return m_text ? m_text->c_str() : _T(""); }
    operator LPCTSTR() const { return GetString(); } // NOLINT(google-explicit-constructor)

    // The same, unshared, for writing within its length. Raises the memory exception when out of memory.
    TCHAR* GetBuffer() { return Own().data(); }

    // The same with another length; added characters are 0. ReleaseBuffer truncates the text at its first 0.
    TCHAR* GetBufferSetLength(int nLength);
    void ReleaseBuffer();

    // A copy for a receiver that frees it with SysFreeString.
    BSTR AllocSysString() const
    {
        const auto size = static_cast<std::size_t>(GetLength()) + 1;
        return std::char_traits<TCHAR>::copy(new TCHAR[size], GetString(), size);
    }

    // Compares code units; 0 when equal. CompareNoCase folds A to Z.
    int Compare(LPCTSTR psz) const;
    int CompareNoCase(LPCTSTR psz) const;

    // Sets the text from a format with %d, %u, %s (a zero-terminated wide string) and %%.
    void Format(const TCHAR* pszFormat, ...);

private:
    std::u16string& Own();

    std::shared_ptr<std::u16string> m_text; // null is the empty text
};

inline CString operator+(CString first, LPCTSTR second)
{
    return first += second;
}
// Without these, two strings would convert to pointers and compare as such.
inline bool operator==(const CString& first, LPCTSTR second)
{
    return first.Compare(second) == 0;
}
inline bool operator==(const CString& first, const CString& second)
{
    return first.Compare(second) == 0;
}
