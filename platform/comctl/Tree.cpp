#include "Control.h"
#include "TreeWindow.h"

#include <afxcmn.h>
#include <cstring>
#include <string>

BOOL CTreeCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CreateControl(*this, MakeTree, {nullptr, dwStyle, rect, pParentWnd, nID});
}

BOOL CTreeCtrl::ItemHasChildren(HTREEITEM hItem) const
{
    TVITEMW item{};
    item.mask = TVIF_HANDLE | TVIF_CHILDREN;
    item.hItem = hItem;
    return GetItem(item) != FALSE && item.cChildren != 0 ? TRUE : FALSE;
}

// The message doesn't tell how long a text is.
CString CTreeCtrl::GetItemText(HTREEITEM hItem) const
{
    constexpr std::size_t firstRoom = 128;
    for (std::size_t room = firstRoom;; room *= 2) {
        std::u16string text(room, u'\0');
        TVITEMW item{};
        item.mask = TVIF_HANDLE | TVIF_TEXT;
        item.hItem = hItem;
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(room);
        if (GetItem(item) == FALSE)
            return {};
        if (const std::size_t length = text.find(u'\0'); length < room - 1)
            return {text.c_str(), static_cast<int>(length)};
    }
}

UINT_PTR CTreeCtrl::GetItemData(HTREEITEM hItem) const
{
    TVITEMW item{};
    item.mask = TVIF_HANDLE | TVIF_PARAM;
    item.hItem = hItem;
    return GetItem(item) != FALSE ? static_cast<UINT_PTR>(item.lParam) : 0;
}

UINT CTreeCtrl::GetItemState(HTREEITEM hItem, UINT nStateMask) const
{
    TVITEMW item{};
    item.mask = TVIF_HANDLE | TVIF_STATE;
    item.hItem = hItem;
    item.stateMask = nStateMask;
    return GetItem(item) != FALSE ? item.state & nStateMask : 0;
}

HTREEITEM CTreeCtrl::HitTest(CPoint pt, UINT* pFlags) const
{
    TVHITTESTINFO info{pt, 0, nullptr};
    const LRESULT row = Ask(TVM_HITTEST, 0, &info);
    if (pFlags != nullptr)
        *pFlags = info.flags;
    return reinterpret_cast<HTREEITEM>(row);
}

BOOL CTreeCtrl::GetItemRect(HTREEITEM hItem, LPRECT lpRect, BOOL bTextOnly) const
{
    std::memcpy(lpRect, &hItem, sizeof(HTREEITEM)); // the message wants it in the rectangle's place
    return static_cast<BOOL>(Ask(TVM_GETITEMRECT, static_cast<WPARAM>(bTextOnly), lpRect));
}
