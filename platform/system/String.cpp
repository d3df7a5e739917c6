#include <afx.h>

#include "Ascii.h"
#include "Memory.h"

#include <algorithm>
#include <cstdarg>
#include <limits>

namespace
{

int CompareFolded(std::u16string_view first, std::u16string_view second)
{
    const std::size_t common = std::min(first.size(), second.size());
    for (std::size_t i = 0; i < common; ++i) {
        const int difference = FoldAscii(first[i]) - FoldAscii(second[i]);
        if (difference != 0)
            return difference;
    }
    return static_cast<int>(first.size()) - static_cast<int>(second.size());
}

std::shared_ptr<std::u16string> MakeText(std::u16string_view text)
{
    if (text.empty())
        return nullptr;
    return WithFrameworkMemory([text] { return std::make_shared<std::u16string>(text); });
}

template <class Integer> void AppendNumber(std::u16string& out, Integer number)
{
    const std::string digits = std::to_string(number);
    out.append(digits.begin(), digits.end());
}

std::u16string FormatText(const TCHAR* format, std::va_list args)
{
    std::u16string out;
    for (; *format != 0; ++format) {
        if (*format != u'%') {
            out.push_back(*format);
            continue;
        }
        ++format;
        switch (*format) {
        case u'd':
            AppendNumber(out, va_arg(args, int));
            break;
        case u'u':
            AppendNumber(out, va_arg(args, unsigned));
            break;
        case u's':
            out.append(va_arg(args, const TCHAR*));
            break;
        case u'%':
            out.push_back(u'%');
            break;
        default: // the arguments after an unknown one can't be found
            AfxThrowInvalidArgException();
        }
    }
    return out;
}

} // namespace

int _wcsicmp(LPCWSTR first, LPCWSTR second)
{
    return CompareFolded(first, second);
} // NOLINT

int _wtoi(LPCWSTR text) // NOLINT
{
    while (*text == u' ' || (*text >= u'\t' && *text <= u'\r'))
        ++text;
    const bool isNegative = *text == u'-';
    if (isNegative || *text == u'+')
        ++text;
    constexpr std::int64_t max = std::numeric_limits<int>::max();
    std::int64_t number = 0;
    for (; *text >= u'0' && *text <= u'9'; ++text)
        number = std::min(number * 10 + (*text - u'0'), max + 1);
    return static_cast<int>(isNegative ? -number : std::min(number, max));
}

CString::CString(LPCTSTR psz) : m_text(psz ? MakeText(psz) : nullptr) {}

CString::CString(LPCTSTR pch, int nLength)
{
    if (nLength < 0)
        AfxThrowInvalidArgException();
    m_text = MakeText({pch, static_cast<std::size_t>(nLength)});
}

TCHAR* CString::GetBufferSetLength(int nLength)
{
    std::u16string& own = Own();
    WithFrameworkMemory([&own, nLength] { own.resize(static_cast<std::size_t>(nLength)); });
    return own.data();
}

void CString::ReleaseBuffer()
{
    if (m_text)
        m_text->resize(std::char_traits<TCHAR>::length(m_text->c_str()));
}

std::u16string& CString::Own()
{
    if (!m_text || m_text.use_count() > 1)
        m_text = WithFrameworkMemory(
            [this] { return std::make_shared<std::u16string>(GetString(), GetLength()); });
    return *m_text;
}

CString& CString::operator+=(LPCTSTR psz)
{
    std::u16string& text = Own();
    WithFrameworkMemory([&] {
        text.append(psz);
        return true;
    });
    return *this;
}

CString& CString::operator+=(TCHAR ch)
{
    std::u16string& text = Own();
    WithFrameworkMemory([&] {
        text.push_back(ch);
        return true;
    });
    return *this;
}

TCHAR CString::GetAt(int iChar) const
{
    if (iChar < 0 || iChar >= GetLength())
        AfxThrowInvalidArgException();
    return (*m_text)[static_cast<std::size_t>(iChar)];
}

int CString::Compare(LPCTSTR psz) const
{
    return std::u16string_view(GetString()).compare(psz);
}

int CString::CompareNoCase(LPCTSTR psz) const
{
    return CompareFolded(GetString(), psz);
}

void CString::Format(const TCHAR* pszFormat, ...)
{
    std::va_list args;
    va_start(args, pszFormat);
    // Format before assigning: an argument may be this string's own text.
    struct EndOfArguments {
        std::va_list& List;
        ~EndOfArguments() { va_end(List); }
    } end{args};
    try {
        m_text = MakeText(FormatText(pszFormat, args));
    } catch (const std::bad_alloc&) {
        AfxThrowMemoryException();
    }
}
