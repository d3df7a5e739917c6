// What windows say of themselves and of their parts to screen readers. Names and values are those of Windows.
#pragma once

#include <windef.h>

using BSTR = WCHAR*; // a text that the receiver frees

inline void SysFreeString(BSTR text)
{
    delete[] text;
}

constexpr HRESULT S_FALSE = 1; // there is no such thing

constexpr WORD VT_EMPTY = 0;
constexpr WORD VT_I4 = 3;

// A number in lVal if vt is VT_I4.
struct VARIANT {
    WORD vt;
    LONG lVal;
};

constexpr LONG CHILDID_SELF = 0; // the window itself; its parts have the numbers from 1 on
