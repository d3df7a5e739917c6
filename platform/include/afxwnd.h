// The class framework's windows. A CWnd is attached to a window, and the messages of the window go through
// it: through its message map, and what that doesn't name to Default.
#pragma once

#include <afxdc.h>
#include <afxmsg.h>
#include <afxstr.h>
#include <winscroll.h>

class CWnd;

// One exchange of values between the controls of a window and its members.
struct CDataExchange {
    CWnd* m_pDlgWnd;
    BOOL m_bSaveAndValidate; // from the controls to the members
};

class CWnd : public CCmdTarget
{
public:
    CWnd() = default;
    ~CWnd() override; // destroys the window that is attached

    // Makes a window of a class that AfxRegisterWndClass gave, and attaches it. A popup's parent is its
    // owner. False, and nothing attached, when there is no display to show it on, no such class, or WM_CREATE
    // gave -1; PostNcDestroy has been called then, and the object may be gone.
    BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, int x, int y,
                  int nWidth, int nHeight, HWND hWndParent, UINT nID);

    // Attaches a window that stands already; PreSubclassWindow is told first.
    BOOL SubclassWindow(HWND hWnd);
    HWND Detach();

    // The object attached to a window; else one that the framework keeps for it as long as the window lives.
    // Null for a handle that isn't a window. The desktop's id of a window of the host's is a handle too, for
    // owning dialogs and nothing else: a widget's, or an X window's.
    static CWnd* FromHandle(HWND hWnd);
    static CWnd* FromHandlePermanent(HWND hWnd); // the attached one alone
    HWND GetSafeHwnd() const { return m_hWnd; }

    // Sends WM_DESTROY, then WM_NCDESTROY as the last message of all.
    virtual BOOL DestroyWindow();

    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return ::SendMessageW(m_hWnd, message, wParam, lParam);
    }

    DWORD GetStyle() const;
    BOOL ModifyStyle(DWORD dwRemove, DWORD dwAdd); // whether anything changed
    CWnd* GetParent() const;
    int GetDlgCtrlID() const;

    CWnd* GetDlgItem(int nID) const;

    // Runs DoDataExchange.
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

    BOOL EnableWindow(BOOL bEnable = TRUE); // whether it was disabled before
    BOOL IsWindowEnabled() const;
    CWnd* SetFocus();
    CWnd* SetActiveWindow();       // of the window that this one is in; the one that was active
    BOOL ShowWindow(int nCmdShow); // SW_SHOW or SW_HIDE; whether it was shown before
    void UpdateWindow() { ::UpdateWindow(m_hWnd); }

    BOOL GetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, UINT nMask = SIF_ALL);
    BOOL SetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, BOOL bRedraw = TRUE);

    // From now on the window is sent WM_NOTIFY with TTN_NEEDTEXTW when a tooltip could show at the mouse; no
    // text, no tooltip.
    BOOL EnableToolTips(BOOL bEnable = TRUE);

    // From SetCapture on all mouse messages come to this window, those outside of it included.
    CWnd* SetCapture();
    static CWnd* GetCapture();

    void GetWindowText(CString& rString) const;
    void SetWindowText(LPCTSTR lpszString);
    CFont* GetFont() const;
    void SetFont(CFont* pFont, BOOL bRedraw = TRUE);

    // Sees every message of input for this window, and for the windows in it, before it is sent; true keeps
    // it from being sent.
    virtual BOOL PreTranslateMessage(MSG* pMsg);

    HWND m_hWnd = nullptr;

protected:
    // Called before a window is attached.
    virtual void PreSubclassWindow();

    // Leads a message through the map; what that doesn't name, to DefWindowProc.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult);

    // A message about this window that its parent has been sent; true when it is dealt with.
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);

    // What the window's own handling makes of the message that is being handled.
    LRESULT Default();

    // Ties controls to members, and moves values, by the DDX functions.
    virtual void DoDataExchange(CDataExchange* pDX);

    // The message that is being handled, with the mouse's place.
    static const MSG* GetCurrentMessage();

    // The window is gone, or couldn't be made; the last call that an object gets from it.
    virtual void PostNcDestroy();

    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnDestroy() { Default(); }
    afx_msg void OnNcDestroy();
    afx_msg void OnSetFocus(CWnd* /*pOldWnd*/) { Default(); }
    // Tells the objects of all windows in this one too, which nobody else does, unless it is in one itself.
    afx_msg void OnSettingChange(UINT uFlags, LPCTSTR lpszSection);
    afx_msg void OnHScroll(UINT /*nSBCode*/, UINT /*nPos*/, CWnd* /*pScrollBar*/) { Default(); }

private:
    friend class Window;

    static BOOL ReflectToChild(HWND hWndChild, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);

    DECLARE_MESSAGE_MAP()
};

// Attaches the object to the control of the id, unless it has a window already. Raises the invalid argument
// exception where there is no such control.
void DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl);

// The name of a window class with the style and the background, a system colour's index and 1 (0: none).
LPCTSTR AfxRegisterWndClass(UINT nClassStyle, HANDLE hCursor = nullptr, HBRUSH hbrBackground = nullptr,
                            HANDLE hIcon = nullptr);
