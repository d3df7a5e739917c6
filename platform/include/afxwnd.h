// The class framework's windows. A CWnd is attached to a window and receives its messages: those in its
// message map go to their handlers, the others to Default.
#pragma once

#include <afxdc.h>
#include <afxmsg.h>
#include <afxstr.h>
#include <winscroll.h>

class CWnd;

// An exchange of values between the controls of a window and the members of its object.
struct CDataExchange {
    CWnd* m_pDlgWnd;
    BOOL m_bSaveAndValidate; // TRUE: from the controls to the members
};

class CWnd : public CCmdTarget
{
public:
    CWnd() = default;
    ~CWnd() override; // destroys the attached window

    // Creates a window of a class of AfxRegisterWndClass, and attaches it. A popup's parent is its owner.
    // Fails, with nothing attached, without a display or class, and if WM_CREATE gave -1; then PostNcDestroy
    // has been called, and the object may be deleted.
    BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, int x, int y,
                  int nWidth, int nHeight, HWND hWndParent, UINT nID);

    // Attaches an existing window and calls PreSubclassWindow.
    BOOL SubclassWindow(HWND hWnd);
    HWND Detach();

    // The object attached to a window, otherwise a temporary one during the lifetime of the window. Null for
    // an invalid handle. The desktop's id of a host's window, a widget or an X window, is valid as the owner
    // of a dialog only.
    static CWnd* FromHandle(HWND hWnd);
    static CWnd* FromHandlePermanent(HWND hWnd); // null if none is attached
    HWND GetSafeHwnd() const { return m_hWnd; }

    // Sends WM_DESTROY, and WM_NCDESTROY as the last message.
    virtual BOOL DestroyWindow();

    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return ::SendMessageW(m_hWnd, message, wParam, lParam);
    }

    DWORD GetStyle() const;
    BOOL ModifyStyle(DWORD dwRemove, DWORD dwAdd); // gives whether the style changed
    CWnd* GetParent() const;
    int GetDlgCtrlID() const;

    CWnd* GetDlgItem(int nID) const;

    // Calls DoDataExchange.
    BOOL UpdateData(BOOL bSaveAndValidate = TRUE);

    void GetClientRect(LPRECT lpRect) const { ::GetClientRect(m_hWnd, lpRect); }
    void GetWindowRect(LPRECT lpRect) const { ::GetWindowRect(m_hWnd, lpRect); }
    void ScreenToClient(LPPOINT lpPoint) const { ::ScreenToClient(m_hWnd, lpPoint); }
    void ScreenToClient(LPRECT lpRect) const;
    void MoveWindow(int x, int y, int nWidth, int nHeight,
                    BOOL bRepaint = TRUE); // in the parent's client coordinates
    void MoveWindow(LPCRECT lpRect, BOOL bRepaint = TRUE);
    void InvalidateRect(LPCRECT lpRect, BOOL bErase = TRUE) { ::InvalidateRect(m_hWnd, lpRect, bErase); }
    BOOL RedrawWindow(LPCRECT lpRectUpdate = nullptr, UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE)
    {
        return ::RedrawWindow(m_hWnd, lpRectUpdate, nullptr, flags);
    }

    BOOL EnableWindow(BOOL bEnable = TRUE); // gives whether it was disabled before
    BOOL IsWindowEnabled() const;
    CWnd* SetFocus();
    CWnd* SetActiveWindow();       // of the top-level window; gives the previous one
    BOOL ShowWindow(int nCmdShow); // SW_SHOW or SW_HIDE; gives whether it was shown before
    void UpdateWindow() { ::UpdateWindow(m_hWnd); }

    BOOL GetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, UINT nMask = SIF_ALL);
    BOOL SetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, BOOL bRedraw = TRUE);

    // Makes the window receive WM_NOTIFY with TTN_NEEDTEXTW when the mouse rests on it; an empty text shows
    // no tooltip.
    BOOL EnableToolTips(BOOL bEnable = TRUE);

    // Directs all mouse messages to this window, also those outside of it.
    CWnd* SetCapture();
    static CWnd* GetCapture();

    void GetWindowText(CString& rString) const;
    void SetWindowText(LPCTSTR lpszString);
    CFont* GetFont() const;
    void SetFont(CFont* pFont, BOOL bRedraw = TRUE);

    // Called before an input message is sent to this window or one inside of it; TRUE suppresses the message.
    virtual BOOL PreTranslateMessage(MSG* pMsg);

    // Answers for screen readers, about the window or a part of it; S_FALSE if there is nothing to say. A
    // window without a name has its text for one. Locations are in screen coordinates.
    //
    // The parent of a tree names the cells of the table that the tree forms with the header above it, and the
    // cell that has the focus: part = n * columns + column + 1, with n from TVM_MAPHTREEITEMTOACCID, or 0 for
    // the headings. A combo box names its items from 1 on.
    virtual HRESULT get_accChildCount(LONG* pcountChildren);
    virtual HRESULT get_accName(VARIANT varChild, BSTR* pszName);
    virtual HRESULT get_accFocus(VARIANT* pvarChild);
    virtual HRESULT accLocation(LONG* pxLeft, LONG* pyTop, LONG* pcxWidth, LONG* pcyHeight, VARIANT varChild);

    HWND m_hWnd = nullptr;

protected:
    // Called when a window has been attached; for a new one, before WM_CREATE.
    virtual void PreSubclassWindow();

    // Calls the handler in the message map, or DefWindowProc.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult);

    // A message that the parent reflects to this window; TRUE if it is handled.
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);

    // Passes the current message to the window's own handling.
    LRESULT Default();

    // Attaches controls to members, and exchanges values, with the DDX functions.
    virtual void DoDataExchange(CDataExchange* pDX);

    // The message that is being handled, with the position of the mouse.
    static const MSG* GetCurrentMessage();

    // The last call: the window is destroyed, or couldn't be created.
    virtual void PostNcDestroy();

    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnDestroy() { Default(); }
    afx_msg void OnNcDestroy();
    afx_msg void OnSetFocus(CWnd* /*pOldWnd*/) { Default(); }
    // A top-level window forwards the message to the objects of all windows inside.
    afx_msg void OnSettingChange(UINT uFlags, LPCTSTR lpszSection);
    afx_msg void OnHScroll(UINT /*nSBCode*/, UINT /*nPos*/, CWnd* /*pScrollBar*/) { Default(); }

private:
    friend class Window;

    static BOOL ReflectToChild(HWND hWndChild, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);

    DECLARE_MESSAGE_MAP()
};

// Attaches the object to the control with the id, unless it has a window already. Raises the invalid argument
// exception if there is no such control.
void DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl);

// The name of a window class with this style and background, the index of a system colour plus 1 (0: none).
LPCTSTR AfxRegisterWndClass(UINT nClassStyle, HANDLE hCursor = nullptr, HBRUSH hbrBackground = nullptr,
                            HANDLE hIcon = nullptr);
