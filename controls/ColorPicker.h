// A button that shows a colour and drops down a popup to choose another.
#pragma once

#include <afxcmn.h>

// Attached to a button of a dialog, or made with Create. In both cases it takes the height of its arrow and
// at least twice the arrow's width, and shows no text. For each use of the popup it sends its parent, with
// the colour as wParam and its control id as lParam: g_msgDropdown, any number of g_msgSelChange,
// g_msgCloseUp, and g_msgSelEndOK or g_msgSelEndChange. It doesn't send BN_CLICKED.
class k_ColorPicker : public CButton
{
public:
    k_ColorPicker();

    // While the popup is open, the previous colour.
    COLORREF GetColor() const { return m_color; }

    // Sets the colour and repaints the button immediately.
    void SetColor(COLORREF color);

    // Marks the colour as undetermined. Takes effect at the next painting.
    void SetMixed(BOOL mixed) { m_mixed = mixed; }

    // What the colour is of, which screen readers hear before its name.
    void SetName(LPCTSTR name) { m_name = name; }

    HRESULT get_accName(VARIANT varChild, BSTR* pszName) override;

    void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct) override;

protected:
    void PreSubclassWindow() override;

    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnClicked();
    afx_msg void OnToolTipText(UINT nID, NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg LRESULT OnSelChange(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnSelEndChange(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnSelEndOK(WPARAM wParam, LPARAM lParam);

private:
    CString GetValueText() const; // the colour's name or number

    void FitSize();
    void NotifyParent(UINT message, COLORREF color);

    void PaintArrow(CDC* dc, UINT state);
    void PaintSwatch(CDC* dc, CRect rect, UINT state) const;

    BOOL m_open = FALSE; // the popup is open
    COLORREF m_color = ::GetSysColor(COLOR_BTNFACE);
    RECT m_arrowRect{};
    CString m_name;
    CString m_defaultText; // empty: the popup offers no automatic colour
    CString m_moreText;

public:
    // The colour is undetermined, as it differs among the records under edit. Cleared when the popup reports
    // another colour, or closes without a choice.
    BOOL m_mixed = FALSE;

    DECLARE_MESSAGE_MAP()
};
