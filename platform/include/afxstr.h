// The framework's wide string: 16-bit characters, passed by value, contents shared until one of the sharers
// writes.
#pragma once

#include <memory>
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

    // A position that the string doesn't have raises the invalid argument exception.
    TCHAR GetAt(int iChar) const;

    // The zero-terminated text; good until the string is changed or destroyed.
    LPCTSTR GetString() const { return m_text ? m_text->c_str() : _T(""); }
    operator LPCTSTR() const { return GetString(); } // NOLINT(google-explicit-constructor)

    // The same for writing within its length, shared with no other string. A failed allocation raises the
    // memory exception.
    TCHAR* GetBuffer() { return Own().data(); }

    // The same with another length; places that are added hold 0. ReleaseBuffer cuts the text at its first 0.
    TCHAR* GetBufferSetLength(int nLength);
    void ReleaseBuffer();

    // Orders by code unit; 0 when equal. The second folds the letters A to Z.
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
inline bool operator==(const CString& first, LPCTSTR second)
{
    return first.Compare(second) == 0;
}
inline bool operator==(const CString& first, const CString& second)
{
    return first.Compare(second) == 0;
}
