#include <afxwin.h>

// Initialized before any constructor runs, so that application objects can register in it.
constinit AFX_MODULE_STATE afxModuleState{nullptr, false};

constinit thread_local AFX_MODULE_STATE* AFX_MAINTAIN_STATE2::s_pInForce = nullptr;

AFX_MODULE_STATE* AfxGetModuleState()
{
    return AFX_MAINTAIN_STATE2::s_pInForce ? AFX_MAINTAIN_STATE2::s_pInForce : &afxModuleState;
}

CWinApp* AfxGetApp()
{
    return AfxGetModuleState()->m_pCurrentWinApp;
}

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap()
{
    static constexpr AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, 0, nullptr, nullptr}};
    static constexpr AFX_MSGMAP map = {nullptr, entries};
    return &map;
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const
{
    return GetThisMessageMap();
}

BOOL CWinThread::InitInstance()
{
    return TRUE;
}

CWinApp::CWinApp()
{
    afxModuleState.m_pCurrentWinApp = this;
}

CWinApp::~CWinApp()
{
    if (afxModuleState.m_pCurrentWinApp == this)
        afxModuleState.m_pCurrentWinApp = nullptr;
}
