// The button that shows a colour and drops down the popup in which another is chosen.
#pragma once

#include <afxwin.h>

// Attached to a button of a dialog, or made with Create; either way it takes the height of its arrow, and at
// least the width of two, and shows no text. Its parent is sent, with the colour as wParam and the control's
// id as lParam, for one use of the popup: g_msgDropdown, any number of g_msgSelChange, g_msgCloseUp, and
// g_msgSelEndOK or g_msgSelEndChange. It isn't sent BN_CLICKED.
class k_ColorPicker : public CButton
{
public:
    k_ColorPicker();

    // While the popup is open, the colour from before.
    COLORREF GetColor() const { return m_color; }

    // Shows the colour at once.
    void SetColor(COLORREF color);

    // Marks the colour as undetermined; shows at the next painting.
    void SetMixed(BOOL mixed) { m_mixed = mixed; }

    void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct) override;

protected:
    void PreSubclassWindow() override;

    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnClicked();
    afx_msg LRESULT OnSelChange(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnSelEndChange(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnSelEndOK(WPARAM wParam, LPARAM lParam);

private:
    void FitSize();
    void TellParent(UINT message, COLORREF color);

    void PaintArrow(CDC* dc, UINT state);
    void PaintSwatch(CDC* dc, CRect rect, UINT state) const;

    BOOL m_open = FALSE; // this button's popup is
    COLORREF m_color = ::GetSysColor(COLOR_BTNFACE);
    RECT m_arrowRect{};
    CString m_defaultText; // stays empty: there is no automatic colour to choose
    CString m_moreText;

public:
    // The colour is undetermined: what it is the colour of differs among the records under edit. A use of the
    // popup that moved to a colour, or was given up, clears it.
    BOOL m_mixed = FALSE;

    DECLARE_MESSAGE_MAP()
};
