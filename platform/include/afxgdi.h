// The class framework's drawing: objects for handles, and the device context.
#pragma once

#include <afxobj.h>
#include <atltypes.h>
#include <windows.h>

class CDC;

// Raised by constructors that can't create their object.
class CResourceException : public CException
{
public:
    CResourceException() : CException(false) {}
};

[[noreturn]] void AfxThrowResourceException();

// Owns a handle: the destructor deletes it. For a handle without an owner, FromHandle and SelectObject give a
// temporary object that lives as long as the handle.
class CGdiObject : public CObject
{
public:
    CGdiObject() = default;
    ~CGdiObject() override;

    // Fails for a null handle.
    BOOL Attach(HGDIOBJ hObject);
    HGDIOBJ Detach();
    BOOL DeleteObject();

    // Null for a null handle.
    static CGdiObject* FromHandle(HGDIOBJ hObject);

    HGDIOBJ m_hObject = nullptr;
};

class CPen : public CGdiObject
{
public:
    CPen() = default;
    CPen(int nPenStyle, int nWidth, COLORREF crColor);             // raises the resource exception
    operator HPEN() const { return static_cast<HPEN>(m_hObject); } // NOLINT(google-explicit-constructor)
};

class CBrush : public CGdiObject
{
public:
    CBrush() = default;
    explicit CBrush(COLORREF crColor);                                 // raises the resource exception
    operator HBRUSH() const { return static_cast<HBRUSH>(m_hObject); } // NOLINT(google-explicit-constructor)
};

class CFont : public CGdiObject
{
public:
    BOOL CreateFontIndirect(const LOGFONTW* lpLogFont) { return Attach(::CreateFontIndirectW(lpLogFont)); }
    static CFont* FromHandle(HFONT hFont) { return static_cast<CFont*>(CGdiObject::FromHandle(hFont)); }
    operator HFONT() const { return static_cast<HFONT>(m_hObject); } // NOLINT(google-explicit-constructor)
};

class CBitmap : public CGdiObject
{
public:
    BOOL CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight);
};

class CPalette : public CGdiObject
{
public:
    BOOL CreatePalette(LOGPALETTE* lpLogPalette) { return Attach(::CreatePalette(lpLogPalette)); }
    static CPalette* FromHandle(HPALETTE hPalette)
    {
        return static_cast<CPalette*>(CGdiObject::FromHandle(hPalette));
    }
    operator HPALETTE() const { return static_cast<HPALETTE>(m_hObject); } // NOLINT
};
