// The class framework's menus.
#pragma once

#include <afxobj.h>
#include <windows.h>

class CWnd;

using HMENU = struct HMENU__*;

constexpr UINT MF_BYPOSITION = 0x0400;
constexpr UINT TPM_RIGHTBUTTON = 0x0002;

// A menu of the module, or a popup in one. Positions count from 0 and include separators. In a text an
// ampersand underlines the next character, and a tab precedes the shortcut.
class CMenu : public CObject
{
public:
    CMenu() = default;
    ~CMenu() override { DestroyMenu(); }

    // Creates the menu from its template. Fails if the object has a menu, and without a template or display.
    BOOL LoadMenu(UINT nIDResource);

    // Includes the popups. False if there is no menu.
    BOOL DestroyMenu();

    // The popup at a position; null if there is none. It belongs to the menu.
    CMenu* GetSubMenu(int nPos) const;

    int GetMenuItemCount() const;       // -1 without a menu
    UINT GetMenuItemID(int nPos) const; // 0 for a separator, -1 for a popup and for no item

    // An item's text and its length; empty and 0 for no item, and without MF_BYPOSITION.
    int GetMenuString(UINT nPosition, CString& rString, UINT nFlags) const;

    // Replaces an item, which may be a popup, by a command. Fails without MF_BYPOSITION and with other flags.
    BOOL ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem = 0, LPCTSTR lpszNewItem = nullptr);

    // Shows a popup at a point of the screen (-1, -1: at the window's corner) until the user chooses or
    // cancels. WM_COMMAND with the chosen id is posted to the window. Fails without a window. Both mouse
    // buttons choose.
    BOOL TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT lpRect = nullptr);

    HMENU m_hMenu = nullptr;
};
