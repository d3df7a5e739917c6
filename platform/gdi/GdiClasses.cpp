// The class framework's drawing objects.
#include "DeviceContext.h"

#include <afxdc.h>

using gdi::DeviceContext;
using gdi::GdiObject;

void AfxThrowResourceException()
{
    static CResourceException exception; // there may be no memory for another
    throw &exception;
}

// ---- CGdiObject

CGdiObject::~CGdiObject()
{
    DeleteObject();
}

BOOL CGdiObject::Attach(HGDIOBJ hObject)
{
    if (hObject == nullptr)
        return FALSE;
    m_hObject = hObject;
    GdiObject::FromHandle(hObject)->SetAttached(this);
    return TRUE;
}

HGDIOBJ CGdiObject::Detach()
{
    if (m_hObject != nullptr)
        GdiObject::FromHandle(m_hObject)->ForgetAttached(this);
    return std::exchange(m_hObject, nullptr);
}

BOOL CGdiObject::DeleteObject()
{
    return ::DeleteObject(Detach());
}

CGdiObject* CGdiObject::FromHandle(HGDIOBJ hObject)
{
    return hObject == nullptr ? nullptr : GdiObject::FromHandle(hObject)->Wrapper();
}

CPen::CPen(int nPenStyle, int nWidth, COLORREF crColor)
{
    if (Attach(::CreatePen(nPenStyle, nWidth, crColor)) == FALSE)
        AfxThrowResourceException();
}

CBrush::CBrush(COLORREF crColor)
{
    if (Attach(::CreateSolidBrush(crColor)) == FALSE)
        AfxThrowResourceException();
}

BOOL CBitmap::CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight)
{
    return Attach(::CreateCompatibleBitmap(pDC->GetSafeHdc(), nWidth, nHeight));
}

// ---- CDC

CDC::~CDC()
{
    ::DeleteDC(Detach());
}

BOOL CDC::Attach(HDC hDC)
{
    if (hDC == nullptr)
        return FALSE;
    m_hDC = hDC;
    DeviceContext::FromHandle(hDC)->SetAttached(this);
    return TRUE;
}

HDC CDC::Detach()
{
    if (m_hDC != nullptr)
        DeviceContext::FromHandle(m_hDC)->ForgetAttached(this);
    return std::exchange(m_hDC, nullptr);
}

CDC* CDC::FromHandle(HDC hDC)
{
    return hDC == nullptr ? nullptr : DeviceContext::FromHandle(hDC)->Wrapper();
}

CGdiObject* CDC::Select(const CGdiObject* pObject)
{
    return CGdiObject::FromHandle(::SelectObject(m_hDC, pObject == nullptr ? nullptr : pObject->m_hObject));
}

CGdiObject* CDC::SelectStockObject(int nIndex)
{
    return CGdiObject::FromHandle(::SelectObject(m_hDC, ::GetStockObject(nIndex)));
}

CPalette* CDC::SelectPalette(CPalette* pPalette, BOOL bForceBackground)
{
    HPALETTE const palette = pPalette == nullptr ? nullptr : HPALETTE(*pPalette);
    return CPalette::FromHandle(::SelectPalette(m_hDC, palette, bForceBackground));
}

CPoint CDC::MoveTo(int x, int y)
{
    CPoint previous;
    ::MoveToEx(m_hDC, x, y, &previous);
    return previous;
}

void CDC::FillRect(LPCRECT lpRect, CBrush* pBrush)
{
    ::FillRect(m_hDC, lpRect, *pBrush);
}

void CDC::FillSolidRect(LPCRECT lpRect, COLORREF clr)
{
    if (m_hDC == nullptr)
        return;
    ::SetBkColor(m_hDC, clr);
    DeviceContext::FromHandle(m_hDC)->FillUnits(gdi::ToBox(*lpRect), gdi::ToPixel(clr));
}

void CDC::FillSolidRect(int x, int y, int cx, int cy, COLORREF clr)
{
    const CRect rect(x, y, x + cx, y + cy);
    FillSolidRect(rect, clr);
}

CSize CDC::GetTextExtent(LPCTSTR lpszString, int nCount) const
{
    CSize size;
    ::GetTextExtentPoint32W(m_hDC, lpszString, nCount, &size);
    return size;
}
