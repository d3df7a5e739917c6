// The class framework's common controls: the header and the tree.
#pragma once

#include <afxwin.h>
#include <commctrl.h>

// Headings of columns that the user can resize.
class CHeaderCtrl : public CWnd
{
public:
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    int GetItemCount() const { return static_cast<int>(::SendMessageW(m_hWnd, HDM_GETITEMCOUNT, 0, 0)); }
};

// Nested rows. A handle is valid until its row is deleted.
class CTreeCtrl : public CWnd
{
public:
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // The new row; null for an invalid parent.
    HTREEITEM InsertItem(const TVINSERTSTRUCTW* lpInsertStruct)
    {
        return reinterpret_cast<HTREEITEM>(Ask(TVM_INSERTITEMW, 0, lpInsertStruct));
    }
    BOOL SetItem(const TVITEMW* pItem) { return static_cast<BOOL>(Ask(TVM_SETITEMW, 0, pItem)); }

    // Null if there is none.
    HTREEITEM GetNextItem(HTREEITEM hItem, UINT nCode) const
    {
        return reinterpret_cast<HTREEITEM>(Ask(TVM_GETNEXTITEM, nCode, hItem));
    }
    BOOL ItemHasChildren(HTREEITEM hItem) const;
    CString GetItemText(HTREEITEM hItem) const;
    UINT_PTR GetItemData(HTREEITEM hItem) const;               // set by TVIF_PARAM; 0 for an invalid handle
    UINT GetItemState(HTREEITEM hItem, UINT nStateMask) const; // TVIS_ values within the mask

    // The row at a point of the client area, and TVHT_ values; null for no row.
    HTREEITEM HitTest(CPoint pt, UINT* pFlags = nullptr) const;

    // In client coordinates: the label or the whole row. False for a row below a collapsed one.
    BOOL GetItemRect(HTREEITEM hItem, LPRECT lpRect, BOOL bTextOnly) const;

    BOOL Expand(HTREEITEM hItem, UINT nCode) { return static_cast<BOOL>(Ask(TVM_EXPAND, nCode, hItem)); }
    BOOL EnsureVisible(HTREEITEM hItem) { return static_cast<BOOL>(Ask(TVM_ENSUREVISIBLE, 0, hItem)); }

    // TVGN_CARET selects the row (null: none), TVGN_FIRSTVISIBLE scrolls it to the top.
    BOOL Select(HTREEITEM hItem, UINT nCode) { return static_cast<BOOL>(Ask(TVM_SELECTITEM, nCode, hItem)); }

private:
    LRESULT Ask(UINT message, WPARAM wParam, const void* pParam) const
    {
        return ::SendMessageW(m_hWnd, message, wParam, reinterpret_cast<LPARAM>(pParam));
    }
    BOOL GetItem(TVITEMW& item) const { return static_cast<BOOL>(Ask(TVM_GETITEMW, 0, &item)); }
};
