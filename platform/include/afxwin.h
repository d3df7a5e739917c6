// The class framework's windows, what they draw with, the application object and the module state.
#pragma once

#include <afx.h>
#include <afxcoll.h>
#include <afxdc.h>
#include <afxmsg.h>
#include <windows.h>

class PLATFORM_API CWinApp;

class PLATFORM_API CWinThread : public CCmdTarget
{
public:
    virtual BOOL InitInstance(); // true
};

// The application object of a module. The framework calls InitInstance when the module has been loaded and
// its static objects are constructed.
class PLATFORM_API CWinApp : public CWinThread
{
public:
    CWinApp();
    ~CWinApp() override;
};

// The framework's data about a module.
struct AFX_MODULE_STATE {
    CWinApp* m_pCurrentWinApp;
    bool m_bEnding; // the process is ending or the module is unloaded; its objects must not be used
};

PLATFORM_API extern constinit AFX_MODULE_STATE afxModuleState;

inline AFX_MODULE_STATE* AfxGetStaticModuleState()
{
    return &afxModuleState;
} // this module's
PLATFORM_API AFX_MODULE_STATE* AfxGetModuleState(); // the one in force on this thread
PLATFORM_API CWinApp* AfxGetApp();                  // of the state in force

// Loads an extension module, a library with windows on this framework: "name.dll" is libname.so beside the
// framework. It stays loaded until the process ends. Null if the program has no display, or the module can't
// be loaded, which is reported on standard error once.
PLATFORM_API HMODULE AfxLoadLibrary(LPCTSTR moduleName);

// Puts a module's state in force on this thread until the end of the scope.
class PLATFORM_API AFX_MAINTAIN_STATE2
{
public:
    explicit AFX_MAINTAIN_STATE2(AFX_MODULE_STATE* pModuleState) : m_pPrevModuleState(s_pInForce)
    {
        s_pInForce = pModuleState;
    }
    AFX_MAINTAIN_STATE2(const AFX_MAINTAIN_STATE2&) = delete;
    AFX_MAINTAIN_STATE2& operator=(const AFX_MAINTAIN_STATE2&) = delete;
    ~AFX_MAINTAIN_STATE2() { s_pInForce = m_pPrevModuleState; }

private:
    friend AFX_MODULE_STATE* AfxGetModuleState();

    // Accessed by every exported function: initial-exec avoids a call of the loader.
    [[gnu::tls_model("initial-exec")]] static constinit thread_local AFX_MODULE_STATE* s_pInForce;

    AFX_MODULE_STATE* m_pPrevModuleState;
};

// NOLINTNEXTLINE(bugprone-macro-parentheses)
#define AFX_MANAGE_STATE(state) AFX_MAINTAIN_STATE2 moduleStateInForce(state)

#include <afxctl.h>
#include <afxdialog.h>
#include <afxmenu.h>
#include <afxmsg_.h>
#include <afxwnd.h>
