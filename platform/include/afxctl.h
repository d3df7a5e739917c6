// The class framework's basic controls, and the system's colour dialog.
#pragma once

#include <afxwnd.h>
#include <commdlg.h>

// A text, or the place of something else.
class CStatic : public CWnd
{
};

class CScrollBar : public CWnd
{
public:
    // Sends WM_HSCROLL to its parent; moves by SetScrollInfo only.
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
};

class CButton : public CWnd
{
public:
    // Creates a push button. With BS_OWNERDRAW the parent receives WM_DRAWITEM and reflects it to DrawItem.
    virtual BOOL Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class CComboBox : public CWnd
{
public:
    // Without CBS_HASSTRINGS an owner-drawn box has no texts: lParam of CB_INSERTSTRING is the item's data.
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // The text of an item; empty for an invalid index.
    void GetLBText(int nIndex, CString& rString) const;

    // The text that the field shows in grey while it is empty and nothing is selected.
    BOOL SetCueBanner(LPCTSTR lpcText)
    {
        return static_cast<BOOL>(SendMessage(CB_SETCUEBANNER, 0, reinterpret_cast<LPARAM>(lpcText)));
    }

    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
    virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);
    virtual int CompareItem(LPCOMPAREITEMSTRUCT lpCompareItemStruct);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

// Tooltips for rectangles of a window.
class CToolTipCtrl : public CWnd
{
public:
    virtual BOOL Create(CWnd* pParentWnd, DWORD dwStyle = 0);

    // Copies the text. Tools with the same id may have different rectangles, in client coordinates of the
    // window.
    BOOL AddTool(CWnd* pWnd, LPCTSTR lpszText, LPCRECT lpRectTool, UINT_PTR nIDTool);
};

// The system's colour dialog.
class CColorDialog
{
public:
    explicit CColorDialog(COLORREF clrInit = 0, DWORD dwFlags = 0, CWnd* pParentWnd = nullptr);

    // IDOK or IDCANCEL; IDCANCEL without a display.
    INT_PTR DoModal();

    // The chosen colour after IDOK, otherwise the initial one.
    COLORREF GetColor() const { return m_cc.rgbResult; }

    // The custom colours may be set before DoModal.
    CHOOSECOLORW m_cc{};
};
