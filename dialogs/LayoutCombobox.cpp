#include "LayoutCombobox.h"

#include <controls/StyleWords.h>

namespace
{

constexpr DWORD ownerDrawnStyle =
    WS_CHILD | WS_VISIBLE | WS_BORDER | WS_VSCROLL | WS_HSCROLL | CBS_OWNERDRAWVARIABLE;

// Looks at the low 32 bits only: -1 may be stored with 32 bits or with 64, and no record has an odd address.
bool HasRecord(UINT_PTR itemData)
{
    return itemData != 0 && static_cast<LONG>(itemData) != CB_ERR;
}

// A context that is owned elsewhere. Its colours are restored, even if a pen for the picture can't be made.
class k_BorrowedDC : public CDC
{
public:
    explicit k_BorrowedDC(HDC context)
    {
        Attach(context);
        m_textColor = GetTextColor();
        m_backgroundColor = GetBkColor();
    }
    ~k_BorrowedDC() override
    {
        SetTextColor(m_textColor);
        SetBkColor(m_backgroundColor);
        Detach();
    }

private:
    COLORREF m_textColor;
    COLORREF m_backgroundColor;
};

} // namespace

BEGIN_MESSAGE_MAP(k_LayoutCombobox, CComboBox)
END_MESSAGE_MAP()

void k_LayoutCombobox::PreSubclassWindow()
{
    CComboBox::PreSubclassWindow();
}

BOOL k_LayoutCombobox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CComboBox::Create(dwStyle | ownerDrawnStyle, rect, pParentWnd, nID);
}

void k_LayoutCombobox::DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct)
{
    const DRAWITEMSTRUCT& item = *lpDrawItemStruct;
    k_BorrowedDC dc(item.hDC);
    dc.FillSolidRect(&item.rcItem, ChooseColors(dc, item));
    DrawPicture(dc, item);
}

COLORREF k_LayoutCombobox::ChooseColors(CDC& dc, const DRAWITEMSTRUCT& item) const
{
    if ((item.itemAction & ODA_SELECT) != 0 && (item.itemState & ODS_SELECTED) != 0) {
        dc.SetTextColor(::GetSysColor(COLOR_HIGHLIGHTTEXT));
        dc.SetBkColor(::GetSysColor(COLOR_HIGHLIGHT));
        return ::GetSysColor(COLOR_HIGHLIGHT);
    }
    return m_mixed == 1 ? ::GetSysColor(COLOR_3DLIGHT) : dc.GetBkColor();
}

void k_LayoutCombobox::DrawPicture(CDC& dc, const DRAWITEMSTRUCT& item)
{
    if (!HasRecord(item.itemData)) {
        CString text;
        GetWindowText(text);
        RECT rect = item.rcItem;
        dc.DrawText(text, &rect, 0);
        return;
    }
    const auto& style = *reinterpret_cast<const k_LineDef*>(item.itemData);
    style.DrawLine(&dc, item.rcItem);
    if (m_drawSymbol)
        style.DrawSymbol(&dc, item.rcItem);
}

HRESULT k_LayoutCombobox::get_accName(VARIANT varChild, BSTR* pszName)
{
    const bool isPicture = varChild.lVal != CHILDID_SELF && (GetStyle() & CBS_OWNERDRAWVARIABLE) != 0;
    const auto data =
        isPicture ? static_cast<UINT_PTR>(SendMessage(CB_GETITEMDATA, static_cast<WPARAM>(varChild.lVal - 1)))
                  : 0;
    if (!HasRecord(data))
        return S_FALSE;
    const auto& style = *reinterpret_cast<const k_LineDef*>(data);
    *pszName = (m_drawSymbol ? GetSymbolShapeName(style.SymbolShape) : GetLineStyleName(style.LineStyle))
                   .AllocSysString();
    return S_OK;
}

void k_LayoutCombobox::MeasureItem(LPMEASUREITEMSTRUCT /*lpMeasureItemStruct*/) {}

int k_LayoutCombobox::CompareItem(LPCOMPAREITEMSTRUCT /*lpCompareItemStruct*/)
{
    return 0;
}
