// The combo box of the curve style dialog.
#pragma once

#include <afxwin.h>

// Shows each item of an owner-drawn list as the picture of a style, over the whole width of the item. The
// data of such an item is a const k_LineDef*, which stays the dialog's; 0 and -1 stand for no record. A box
// of texts needs nothing of this but the mark.
class k_LayoutCombobox : public CComboBox
{
public:
    // Whether pictures have the symbol as well as the line; to be told before the first item.
    void SetDrawSymbol(bool drawSymbol) { m_drawSymbol = drawSymbol; }

    // 1 marks the box: the records under edit differ in what it shows. Its items are then drawn on a light
    // background, also once the user has chosen one.
    void SetMixed(int mixed) { m_mixed = mixed; }

    // Makes an owner-drawn box, whatever else the style asks for.
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) override;

    // Highlights an item in a draw that is about its selection, and in no other. The context leaves as it
    // came. An item without a record shows the text of the box.
    void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct) override;

    // Leaves the height that the platform proposes.
    void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct) override;

    int CompareItem(LPCOMPAREITEMSTRUCT lpCompareItemStruct) override; // 0: items have no order

protected:
    void PreSubclassWindow() override;

private:
    // Puts the colours of the draw into the context and gives the background.
    COLORREF ChooseColors(CDC& dc, const DRAWITEMSTRUCT& item) const;

    void DrawPicture(CDC& dc, const DRAWITEMSTRUCT& item);

    bool m_drawSymbol = false;
    int m_mixed = 0;

    DECLARE_MESSAGE_MAP()
};
