#include "ComboWindow.h"
#include "Control.h"

#include <string>

namespace
{

const ControlClass controlClass(u"ComboBox", MakeComboBox);

} // namespace

BOOL CComboBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CreateControl(*this, MakeComboBox, {nullptr, dwStyle, rect, pParentWnd, nID});
}

void CComboBox::GetLBText(int nIndex, CString& rString) const
{
    rString.Empty();
    const auto index = static_cast<WPARAM>(nIndex);
    const LRESULT length = ::SendMessageW(m_hWnd, CB_GETLBTEXTLEN, index, 0);
    if (length <= 0)
        return;
    std::u16string text(static_cast<std::size_t>(length), u'\0'); // and one more, for the terminator
    ::SendMessageW(m_hWnd, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text.data()));
    rString = text.c_str();
}

void CComboBox::DrawItem(LPDRAWITEMSTRUCT /*lpDrawItemStruct*/) {}

void CComboBox::MeasureItem(LPMEASUREITEMSTRUCT /*lpMeasureItemStruct*/) {}

int CComboBox::CompareItem(LPCOMPAREITEMSTRUCT /*lpCompareItemStruct*/)
{
    return 0;
}

BOOL CComboBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    switch (message) {
    case WM_DRAWITEM:
        DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
        return TRUE;
    case WM_MEASUREITEM:
        MeasureItem(reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam));
        return TRUE;
    case WM_COMPAREITEM:
        *pResult = CompareItem(reinterpret_cast<LPCOMPAREITEMSTRUCT>(lParam));
        return TRUE;
    default:
        return CWnd::OnChildNotify(message, wParam, lParam, pResult);
    }
}
