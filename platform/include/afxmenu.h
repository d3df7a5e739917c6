// The class framework's menus.
#pragma once

#include <afxobj.h>
#include <windows.h>

class CWnd;

using HMENU = struct HMENU__*;

constexpr UINT MF_BYPOSITION = 0x0400;
constexpr UINT TPM_RIGHTBUTTON = 0x0002;

// A menu of the module, or a popup in one. Positions count from 0, separators included. In a text an
// ampersand underlines the next character, and what stands behind a tab is the shortcut.
class CMenu : public CObject
{
public:
    CMenu() = default;
    ~CMenu() override { DestroyMenu(); }

    // Makes the menu from its template. False for an object that has a menu, without such a template, and
    // without a display.
    BOOL LoadMenu(UINT nIDResource);

    // The popups in it go too. False if there is no menu.
    BOOL DestroyMenu();

    // The popup at a position, null where there is none. It is the menu's, and goes with it.
    CMenu* GetSubMenu(int nPos) const;

    int GetMenuItemCount() const;       // -1 without a menu
    UINT GetMenuItemID(int nPos) const; // 0 for a separator; all bits for a popup, and where there is no item

    // An item's text and its length; empty and 0 where there is no item, and without MF_BYPOSITION.
    int GetMenuString(UINT nPosition, CString& rString, UINT nFlags) const;

    // Replaces an item, which may be a popup, by a command. Fails without MF_BYPOSITION and with other flags.
    BOOL ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem = 0, LPCTSTR lpszNewItem = nullptr);

    // Shows a popup at a point of the screen (-1, -1: at the window's corner) until the user has chosen or
    // turned away. A chosen command's id is posted to the window with WM_COMMAND. False, and nothing shown,
    // without a window. Either mouse button chooses.
    BOOL TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT lpRect = nullptr);

    HMENU m_hMenu = nullptr;
};
