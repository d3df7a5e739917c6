// What the colour popup says to screen readers.
#include "ColorPopup.h"
#include "StyleWords.h"

CString k_ColorPopup::CellText(int cell) const
{
    if (cell == CELL_MORE)
        return m_moreText;
    return cell == CELL_DEFAULT ? m_defaultText : GetColorName(k_Palette[cell].Color);
}

int k_ColorPopup::CellOfPart(LONG part) const
{
    const int cell = part - 1;
    if (cell >= 0 && cell < m_colorCount)
        return cell;
    if (HasMore() && cell == m_colorCount)
        return CELL_MORE;
    return HasDefault() && cell == m_colorCount + (HasMore() ? 1 : 0) ? CELL_DEFAULT : CELL_NONE;
}

HRESULT k_ColorPopup::get_accChildCount(LONG* pcountChildren)
{
    *pcountChildren = m_colorCount + (HasMore() ? 1 : 0) + (HasDefault() ? 1 : 0);
    return S_OK;
}

HRESULT k_ColorPopup::get_accName(VARIANT varChild, BSTR* pszName)
{
    const int cell = CellOfPart(varChild.lVal);
    if (cell == CELL_NONE)
        return S_FALSE;
    *pszName = CellText(cell).AllocSysString();
    return S_OK;
}

HRESULT k_ColorPopup::get_accFocus(VARIANT* pvarChild)
{
    LONG count = 0;
    get_accChildCount(&count);
    for (LONG part = 1; part <= count; ++part) {
        if (CellOfPart(part) != m_hotCell)
            continue;
        *pvarChild = {VT_I4, part};
        return S_OK;
    }
    return S_FALSE;
}

HRESULT k_ColorPopup::accLocation(LONG* pxLeft, LONG* pyTop, LONG* pcxWidth, LONG* pcyHeight,
                                  VARIANT varChild)
{
    RECT rect;
    if (CellRect(CellOfPart(varChild.lVal), &rect) == FALSE)
        return S_FALSE;
    RECT client;
    GetWindowRect(&client); // the popup has no frame
    *pxLeft = client.left + rect.left;
    *pyTop = client.top + rect.top;
    *pcxWidth = rect.right - rect.left;
    *pcyHeight = rect.bottom - rect.top;
    return S_OK;
}
