// The class framework's device contexts.
#pragma once

#include <afxgdi.h>

class CWnd;

// Owns its handle: the destructor deletes the context. To wrap a foreign context, attach and detach it. The
// operations are those of the functions of the same names in wingdi.h and winuser.h.
class CDC : public CObject
{
public:
    CDC() = default;
    ~CDC() override;

    BOOL CreateCompatibleDC(CDC* pDC) { return Attach(::CreateCompatibleDC(HandleOf(pDC))); }
    BOOL Attach(HDC hDC);
    HDC Detach();

    // The object that owns the handle, otherwise one that lives as long as the handle.
    static CDC* FromHandle(HDC hDC);
    HDC GetSafeHdc() const { return m_hDC; }

    // Each gives the object selected before; null on failure, as for an object without a handle.
    CPen* SelectObject(CPen* pPen) { return static_cast<CPen*>(Select(pPen)); }
    CBrush* SelectObject(CBrush* pBrush) { return static_cast<CBrush*>(Select(pBrush)); }
    CFont* SelectObject(CFont* pFont) { return static_cast<CFont*>(Select(pFont)); }
    CBitmap* SelectObject(CBitmap* pBitmap) { return static_cast<CBitmap*>(Select(pBitmap)); }
    CGdiObject* SelectStockObject(int nIndex);
    CPalette* SelectPalette(CPalette* pPalette, BOOL bForceBackground);
    UINT RealizePalette() { return ::RealizePalette(m_hDC); }
    int GetDeviceCaps(int nIndex) const { return ::GetDeviceCaps(m_hDC, nIndex); }

    COLORREF GetTextColor() const { return ::GetTextColor(m_hDC); }
    COLORREF GetBkColor() const { return ::GetBkColor(m_hDC); }
    COLORREF SetTextColor(COLORREF crColor) { return ::SetTextColor(m_hDC, crColor); }
    COLORREF SetBkColor(COLORREF crColor) { return ::SetBkColor(m_hDC, crColor); }
    int SetBkMode(int nBkMode) { return ::SetBkMode(m_hDC, nBkMode); }

    BOOL RectVisible(LPCRECT lpRect) const { return ::RectVisible(m_hDC, lpRect); }

    CPoint MoveTo(int x, int y);
    BOOL LineTo(int x, int y) { return ::LineTo(m_hDC, x, y); }
    BOOL Rectangle(int x1, int y1, int x2, int y2) { return ::Rectangle(m_hDC, x1, y1, x2, y2); }
    BOOL Rectangle(LPCRECT r) { return ::Rectangle(m_hDC, r->left, r->top, r->right, r->bottom); }
    BOOL Ellipse(int x1, int y1, int x2, int y2) { return ::Ellipse(m_hDC, x1, y1, x2, y2); }
    BOOL FloodFill(int x, int y, COLORREF crColor) { return ::FloodFill(m_hDC, x, y, crColor); }
    BOOL CloseFigure() { return ::CloseFigure(m_hDC); }
    void FillRect(LPCRECT lpRect, CBrush* pBrush);
    // Makes the colour the background colour too.
    void FillSolidRect(LPCRECT lpRect, COLORREF clr);
    void FillSolidRect(int x, int y, int cx, int cy, COLORREF clr);
    BOOL BitBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, DWORD dwRop)
    {
        return ::BitBlt(m_hDC, x, y, nWidth, nHeight, HandleOf(pSrcDC), xSrc, ySrc, dwRop);
    }

    BOOL DrawEdge(LPRECT lpRect, UINT nEdge, UINT nFlags) { return ::DrawEdge(m_hDC, lpRect, nEdge, nFlags); }
    BOOL DrawFrameControl(LPRECT lpRect, UINT nType, UINT nState)
    {
        return ::DrawFrameControl(m_hDC, lpRect, nType, nState);
    }
    void DrawFocusRect(LPCRECT lpRect) { ::DrawFocusRect(m_hDC, lpRect); }

    int DrawText(LPCTSTR lpszString, int nCount, LPRECT lpRect, UINT nFormat)
    {
        return ::DrawTextW(m_hDC, lpszString, nCount, lpRect, nFormat);
    }
    int DrawText(const CString& str, LPRECT lpRect, UINT nFormat)
    {
        return DrawText(str, str.GetLength(), lpRect, nFormat);
    }
    CSize GetTextExtent(LPCTSTR lpszString, int nCount) const;
    CSize GetTextExtent(const CString& str) const { return GetTextExtent(str, str.GetLength()); }

    HDC m_hDC = nullptr;

private:
    static HDC HandleOf(const CDC* pDC) { return pDC == nullptr ? nullptr : pDC->m_hDC; }
    CGdiObject* Select(const CGdiObject* pObject);
};

// Draws on the invalid part of a window, in a handler of WM_PAINT.
class CPaintDC : public CDC
{
public:
    explicit CPaintDC(CWnd* pWnd); // raises the resource exception
};

// Draws on a window at any time.
class CClientDC : public CDC
{
public:
    explicit CClientDC(CWnd* pWnd); // raises the resource exception
    ~CClientDC() override;

protected:
    HWND m_hWnd;
};
