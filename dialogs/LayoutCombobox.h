// A combo box of the curve style dialog.
#pragma once

#include <afxwin.h>

// Shows each item of an owner-drawn list as the picture of a style, over the whole width of the item. The
// item data is a const k_LineDef*, which stays the dialog's; 0 and -1 mean that there is no record. A box of
// texts uses the mixed mark only.
class k_LayoutCombobox : public CComboBox
{
public:
    // Whether pictures show the symbol as well as the line. Call it before adding items.
    void SetDrawSymbol(bool drawSymbol) { m_drawSymbol = drawSymbol; }

    // 1 marks the box as mixed: the records under edit differ in its property. Its items then have a light
    // background, even after the user has chosen one.
    void SetMixed(int mixed) { m_mixed = mixed; }

    // Always creates an owner-drawn box, whatever else the style requests.
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) override;

    // Highlights a selected item only if the action is a change of selection. Restores the context. An item
    // without a record shows the text of the box.
    void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct) override;

    // Keeps the height that the platform proposes.
    void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct) override;

    int CompareItem(LPCOMPAREITEMSTRUCT lpCompareItemStruct) override; // 0: items are not sorted

    // A picture is named by its shape or line style.
    HRESULT get_accName(VARIANT varChild, BSTR* pszName) override;

protected:
    void PreSubclassWindow() override;

private:
    // Sets the colours of the context and returns the background.
    COLORREF ChooseColors(CDC& dc, const DRAWITEMSTRUCT& item) const;

    void DrawPicture(CDC& dc, const DRAWITEMSTRUCT& item);

    bool m_drawSymbol = false;
    int m_mixed = 0;

    DECLARE_MESSAGE_MAP()
};
