#include <afxwin.h>

namespace
{

// Stands before every static object with a constructor, so that an application object can enter itself.
constinit AFX_MODULE_STATE moduleState{nullptr};

} // namespace

constinit thread_local AFX_MODULE_STATE* AFX_MAINTAIN_STATE2::s_pInForce = nullptr;

AFX_MODULE_STATE* AfxGetStaticModuleState() { return &moduleState; }

AFX_MODULE_STATE* AfxGetModuleState()
{
    return AFX_MAINTAIN_STATE2::s_pInForce ? AFX_MAINTAIN_STATE2::s_pInForce : &moduleState;
}

CWinApp* AfxGetApp() { return AfxGetModuleState()->m_pCurrentWinApp; }

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap()
{
    static constexpr AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, 0, 0, nullptr}};
    static constexpr AFX_MSGMAP map = {nullptr, entries};
    return &map;
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const { return GetThisMessageMap(); }

BOOL CWinThread::InitInstance() { return TRUE; }

int CWinThread::ExitInstance() { return 0; }

CWinApp::CWinApp() { moduleState.m_pCurrentWinApp = this; }

CWinApp::~CWinApp()
{
    if (moduleState.m_pCurrentWinApp == this)
        moduleState.m_pCurrentWinApp = nullptr;
}
