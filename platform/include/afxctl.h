// The class framework's controls: a static, a push button, a combo box, a scroll bar, tooltips; and the
// system's colour dialog.
#pragma once

#include <afxwnd.h>
#include <commdlg.h>

// A text, or a place for something else.
class CStatic : public CWnd
{
};

class CScrollBar : public CWnd
{
public:
    // Moves only by SetScrollInfo: what the user does on it goes to the parent as WM_HSCROLL.
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
};

class CButton : public CWnd
{
public:
    // Makes a push button. With BS_OWNERDRAW its parent is sent WM_DRAWITEM for it, and hands that back to
    // DrawItem.
    virtual BOOL Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class CComboBox : public CWnd
{
public:
    // Makes a combo box. Without CBS_HASSTRINGS an owner-drawn box keeps no texts: what CB_INSERTSTRING is
    // given is the item's data.
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // The text of an item; empty for one that the box doesn't have.
    void GetLBText(int nIndex, CString& rString) const;

    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
    virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);
    virtual int CompareItem(LPCOMPAREITEMSTRUCT lpCompareItemStruct);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

// Texts that show while the mouse rests on a rectangle of a window.
class CToolTipCtrl : public CWnd
{
public:
    virtual BOOL Create(CWnd* pParentWnd, DWORD dwStyle = 0);

    // One tool; the text is copied. Tools of one id differ by their rectangles, in client coordinates of the
    // window.
    BOOL AddTool(CWnd* pWnd, LPCTSTR lpszText, LPCRECT lpRectTool, UINT_PTR nIDTool);
};

// The system's colour dialog, on which the user picks any colour.
class CColorDialog
{
public:
    explicit CColorDialog(COLORREF clrInit = 0, DWORD dwFlags = 0, CWnd* pParentWnd = nullptr);

    // IDOK or IDCANCEL; also IDCANCEL where there is no display.
    INT_PTR DoModal();

    // The user's colour after IDOK, else the one at opening.
    COLORREF GetColor() const { return m_cc.rgbResult; }

    // The custom colours in it are to be set before DoModal.
    CHOOSECOLORW m_cc{};
};
