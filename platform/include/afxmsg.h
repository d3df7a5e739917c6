// The class framework's message maps. Their entries are in afxmsg_.h.
#pragma once

#include <afxobj.h>
#include <windows.h>

#define afx_msg // marks a handler of a message map

class PLATFORM_API CCmdTarget;

// Calls a handler with the arguments that it takes from a message.
using AFX_MSGCALL = LRESULT (*)(CCmdTarget* pTarget, WPARAM wParam, LPARAM lParam);

// An entry of a message map. A registered message is named by the variable with its number, which is unknown
// until the module is loaded. The last entry of a map is all 0.
struct AFX_MSGMAP_ENTRY {
    UINT nMessage;
    UINT nCode; // of WM_COMMAND and WM_NOTIFY
    UINT nID;   // ids from this
    UINT nLastID;
    const UINT* pRegistered;
    AFX_MSGCALL pfnCall;
};

struct AFX_MSGMAP {
    const AFX_MSGMAP* (*pfnGetBaseMap)();
    const AFX_MSGMAP_ENTRY* lpEntries;
};

class PLATFORM_API CCmdTarget : public CObject
{
protected:
    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const;
};

// Added to a message that a parent reflects to the child that sent it.
constexpr UINT WM_REFLECT_BASE = 0xBC00;

// clang-format off
#define DECLARE_MESSAGE_MAP()                                                                                \
protected:                                                                                                   \
    static const AFX_MSGMAP* GetThisMessageMap();                                                            \
    const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                                               \
    const AFX_MSGMAP* theClass::GetMessageMap() const { return GetThisMessageMap(); }                        \
    const AFX_MSGMAP* theClass::GetThisMessageMap()                                                          \
    {                                                                                                        \
        using ThisClass [[maybe_unused]] = theClass;                                                         \
        using BaseClass = baseClass;                                                                         \
        static constexpr AFX_MSGMAP_ENTRY entries[] = {

#define END_MESSAGE_MAP()                                                                                    \
            {0, 0, 0, 0, nullptr, nullptr}};                                                                 \
        static constexpr AFX_MSGMAP map = {&BaseClass::GetThisMessageMap, entries};                          \
        return &map;                                                                                         \
    }
// clang-format on
