// The class framework's application object and module state, and what windows draw with.
#pragma once

#include <afx.h>
#include <afxcoll.h>
#include <afxdc.h>
#include <windows.h>

class CCmdTarget;
class CWinApp;

using AFX_PMSG = void (CCmdTarget::*)();

// A line of a message map: which message leads to which handler. The last line of a map is all 0.
struct AFX_MSGMAP_ENTRY {
    UINT nMessage;
    UINT nCode;
    UINT nID;
    UINT nLastID;
    UINT_PTR nSig;
    AFX_PMSG pfn;
};

struct AFX_MSGMAP {
    const AFX_MSGMAP* (*pfnGetBaseMap)();
    const AFX_MSGMAP_ENTRY* lpEntries;
};

// clang-format off
#define DECLARE_MESSAGE_MAP()                                                                                \
protected:                                                                                                   \
    static const AFX_MSGMAP* GetThisMessageMap();                                                            \
    const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                                               \
    const AFX_MSGMAP* theClass::GetMessageMap() const { return GetThisMessageMap(); }                        \
    const AFX_MSGMAP* theClass::GetThisMessageMap()                                                          \
    {                                                                                                        \
        using BaseClass = baseClass;                                                                         \
        static constexpr AFX_MSGMAP_ENTRY entries[] = {

#define END_MESSAGE_MAP()                                                                                    \
            {0, 0, 0, 0, 0, nullptr}};                                                                       \
        static constexpr AFX_MSGMAP map = {&BaseClass::GetThisMessageMap, entries};                          \
        return &map;                                                                                         \
    }
// clang-format on

class CCmdTarget : public CObject
{
protected:
    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const;
};

class CWinThread : public CCmdTarget
{
public:
    virtual BOOL InitInstance(); // true
    virtual int ExitInstance();  // 0
};

// The one application object of a module. The framework calls InitInstance when the module has been loaded
// and all its static objects stand, and ExitInstance before they go.
class CWinApp : public CWinThread
{
public:
    CWinApp();
    ~CWinApp() override;
};

// What the framework keeps for each module.
struct AFX_MODULE_STATE {
    CWinApp* m_pCurrentWinApp;
};

extern constinit AFX_MODULE_STATE afxModuleState;

inline AFX_MODULE_STATE* AfxGetStaticModuleState()
{
    return &afxModuleState;
} // this module's
AFX_MODULE_STATE* AfxGetModuleState(); // the one in force on this thread
CWinApp* AfxGetApp();                  // of the state in force

// Puts a module's state in force on this thread, until the end of its scope.
class AFX_MAINTAIN_STATE2
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

    // Entered at every call of an export: one load and one store, without a call of the loader's.
    [[gnu::tls_model("initial-exec")]] static constinit thread_local AFX_MODULE_STATE* s_pInForce;

    AFX_MODULE_STATE* m_pPrevModuleState;
};

// NOLINTNEXTLINE(bugprone-macro-parentheses)
#define AFX_MANAGE_STATE(state) AFX_MAINTAIN_STATE2 moduleStateInForce(state)
