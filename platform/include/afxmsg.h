// The class framework's message maps.
#pragma once

#include <afxobj.h>
#include <windows.h>

#define afx_msg // marks a handler of a message map

class PLATFORM_API CCmdTarget;

// Calls a handler with what it wants of a message.
using AFX_MSGCALL = LRESULT (*)(CCmdTarget* pTarget, WPARAM wParam, LPARAM lParam);

// A line of a message map: which message leads to which handler. A registered message is named by the
// variable that holds its number, which isn't known before the module is loaded. The last line of a map is
// all 0.
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

// A message that a parent hands back to the child that it is about.
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

#define ON_WM_CREATE()          {WM_CREATE, 0, 0, 0, nullptr, &AfxOnCreate<&ThisClass::OnCreate>},
#define ON_WM_DESTROY()         {WM_DESTROY, 0, 0, 0, nullptr, &AfxOnPlain<&ThisClass::OnDestroy>},
#define ON_WM_NCDESTROY()       {WM_NCDESTROY, 0, 0, 0, nullptr, &AfxOnPlain<&ThisClass::OnNcDestroy>},
#define ON_WM_PAINT()           {WM_PAINT, 0, 0, 0, nullptr, &AfxOnPlain<&ThisClass::OnPaint>},
#define ON_WM_ERASEBKGND()      {WM_ERASEBKGND, 0, 0, 0, nullptr, &AfxOnEraseBkgnd<&ThisClass::OnEraseBkgnd>},
#define ON_WM_SIZE()            {WM_SIZE, 0, 0, 0, nullptr, &AfxOnSize<&ThisClass::OnSize>},
#define ON_WM_ENABLE()          {WM_ENABLE, 0, 0, 0, nullptr, &AfxOnEnable<&ThisClass::OnEnable>},
#define ON_WM_SETFOCUS()        {WM_SETFOCUS, 0, 0, 0, nullptr, &AfxOnFocus<&ThisClass::OnSetFocus>},
#define ON_WM_KILLFOCUS()       {WM_KILLFOCUS, 0, 0, 0, nullptr, &AfxOnFocus<&ThisClass::OnKillFocus>},
#define ON_WM_ACTIVATEAPP()     {WM_ACTIVATEAPP, 0, 0, 0, nullptr, &AfxOnActivateApp<&ThisClass::OnActivateApp>},
#define ON_WM_MOUSEMOVE()       {WM_MOUSEMOVE, 0, 0, 0, nullptr, &AfxOnMouse<&ThisClass::OnMouseMove>},
#define ON_WM_LBUTTONDOWN()     {WM_LBUTTONDOWN, 0, 0, 0, nullptr, &AfxOnMouse<&ThisClass::OnLButtonDown>},
#define ON_WM_LBUTTONUP()       {WM_LBUTTONUP, 0, 0, 0, nullptr, &AfxOnMouse<&ThisClass::OnLButtonUp>},
#define ON_WM_MOUSEWHEEL()      {WM_MOUSEWHEEL, 0, 0, 0, nullptr, &AfxOnWheel<&ThisClass::OnMouseWheel>},
#define ON_WM_SETTINGCHANGE()   {WM_SETTINGCHANGE, 0, 0, 0, nullptr, &AfxOnSettingChange<&ThisClass::OnSettingChange>},
#define ON_WM_LBUTTONDBLCLK()   {WM_LBUTTONDBLCLK, 0, 0, 0, nullptr, &AfxOnMouse<&ThisClass::OnLButtonDblClk>},
#define ON_WM_HSCROLL()         {WM_HSCROLL, 0, 0, 0, nullptr, &AfxOnScroll<&ThisClass::OnHScroll>},
#define ON_WM_VSCROLL()         {WM_VSCROLL, 0, 0, 0, nullptr, &AfxOnScroll<&ThisClass::OnVScroll>},
#define ON_WM_TIMER()           {WM_TIMER, 0, 0, 0, nullptr, &AfxOnTimer<&ThisClass::OnTimer>},
#define ON_WM_CLOSE()           {WM_CLOSE, 0, 0, 0, nullptr, &AfxOnPlain<&ThisClass::OnClose>},
#define ON_WM_CONTEXTMENU()     {WM_CONTEXTMENU, 0, 0, 0, nullptr, &AfxOnContextMenu<&ThisClass::OnContextMenu>},
#define ON_WM_KEYDOWN()         {WM_KEYDOWN, 0, 0, 0, nullptr, &AfxOnKey<&ThisClass::OnKeyDown>},
#define ON_WM_QUERYNEWPALETTE() {WM_QUERYNEWPALETTE, 0, 0, 0, nullptr, &AfxOnAsked<&ThisClass::OnQueryNewPalette>},
#define ON_WM_PALETTECHANGED()  {WM_PALETTECHANGED, 0, 0, 0, nullptr, &AfxOnFocus<&ThisClass::OnPaletteChanged>},
#define ON_MESSAGE(message, handler)                                                                         \
    {message, 0, 0, 0, nullptr, &AfxOnMessage<&handler>},
#define ON_REGISTERED_MESSAGE(variable, handler)                                                             \
    {0xC000, 0, 0, 0, &variable, &AfxOnMessage<&handler>},
#define ON_CONTROL(code, id, handler)                                                                        \
    {WM_COMMAND, code, id, id, nullptr, &AfxOnPlain<&handler>},
#define ON_BN_CLICKED(id, handler) ON_CONTROL(BN_CLICKED, id, handler)
#define ON_COMMAND(id, handler) ON_CONTROL(0, id, handler) // of a menu
#define ON_COMMAND_RANGE(first, last, handler)                                                               \
    {WM_COMMAND, 0, first, last, nullptr, &AfxOnCommandId<&handler>},
#define ON_NOTIFY(code, id, handler)                                                                         \
    {WM_NOTIFY, static_cast<UINT>(code), id, id, nullptr, &AfxOnNotify<&handler>},
#define ON_NOTIFY_RANGE(code, first, last, handler)                                                          \
    {WM_NOTIFY, static_cast<UINT>(code), first, last, nullptr, &AfxOnNotifyRange<&handler>},
#define ON_NOTIFY_REFLECT(code, handler)                                                                     \
    {WM_NOTIFY + WM_REFLECT_BASE, static_cast<UINT>(code), 0, 0, nullptr, &AfxOnNotify<&handler>},
#define ON_CONTROL_REFLECT(code, handler)                                                                    \
    {WM_COMMAND + WM_REFLECT_BASE, code, 0, 0, nullptr, &AfxOnPlain<&handler>},
// clang-format on

// The class of a handler.
template <class Handler> struct AfxHandlerClass;
template <class Class, class Result, class... Arguments>
struct AfxHandlerClass<Result (Class::*)(Arguments...)> {
    using Type = Class;
};

template <auto Handler, class... Arguments> auto AfxCall(CCmdTarget* pTarget, Arguments... arguments)
{
    using Class = typename AfxHandlerClass<decltype(Handler)>::Type;
    return (static_cast<Class*>(pTarget)->*Handler)(arguments...);
}
