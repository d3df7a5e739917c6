// The entries of message maps: the macros that sources write, each below the function that it names, which
// calls the handler with its arguments.
#pragma once

#include <afxwnd.h>

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

// clang-format off
#define AFX_ON_WM(message, call, handler) {message, 0, 0, 0, nullptr, &call<&ThisClass::handler>},
#define AFX_ON_CODE(message, code, first, last, call, handler)                                               \
    {message, static_cast<UINT>(code), first, last, nullptr, &call<&handler>},
#define ON_MESSAGE(message, handler) {message, 0, 0, 0, nullptr, &AfxOnMessage<&handler>},
#define ON_REGISTERED_MESSAGE(variable, handler) {0xC000, 0, 0, 0, &variable, &AfxOnMessage<&handler>},
// clang-format on

template <auto Handler> LRESULT AfxOnMessage(CCmdTarget* pTarget, WPARAM wParam, LPARAM lParam)
{
    return AfxCall<Handler>(pTarget, wParam, lParam);
}

template <auto Handler> LRESULT AfxOnPlain(CCmdTarget* pTarget, WPARAM, LPARAM)
{
    AfxCall<Handler>(pTarget);
    return 0;
}
#define ON_WM_CLOSE() AFX_ON_WM(WM_CLOSE, AfxOnPlain, OnClose)
#define ON_WM_DESTROY() AFX_ON_WM(WM_DESTROY, AfxOnPlain, OnDestroy)
#define ON_WM_NCDESTROY() AFX_ON_WM(WM_NCDESTROY, AfxOnPlain, OnNcDestroy)
#define ON_WM_PAINT() AFX_ON_WM(WM_PAINT, AfxOnPlain, OnPaint)
#define ON_CONTROL(code, id, handler) AFX_ON_CODE(WM_COMMAND, code, id, id, AfxOnPlain, handler)
#define ON_BN_CLICKED(id, handler) ON_CONTROL(BN_CLICKED, id, handler)
#define ON_COMMAND(id, handler) ON_CONTROL(0, id, handler) // of a menu
#define ON_CONTROL_REFLECT(code, handler)                                                                    \
    AFX_ON_CODE(WM_COMMAND + WM_REFLECT_BASE, code, 0, 0, AfxOnPlain, handler)

template <auto Handler> LRESULT AfxOnAsked(CCmdTarget* pTarget, WPARAM, LPARAM)
{
    return AfxCall<Handler>(pTarget);
}
#define ON_WM_QUERYNEWPALETTE() AFX_ON_WM(WM_QUERYNEWPALETTE, AfxOnAsked, OnQueryNewPalette)

template <auto Handler> LRESULT AfxOnCreate(CCmdTarget* pTarget, WPARAM, LPARAM lParam)
{
    return AfxCall<Handler>(pTarget, reinterpret_cast<LPCREATESTRUCT>(lParam));
}
#define ON_WM_CREATE() AFX_ON_WM(WM_CREATE, AfxOnCreate, OnCreate)

template <auto Handler> LRESULT AfxOnEraseBkgnd(CCmdTarget* pTarget, WPARAM wParam, LPARAM)
{
    return AfxCall<Handler>(pTarget, CDC::FromHandle(reinterpret_cast<HDC>(wParam)));
}
#define ON_WM_ERASEBKGND() AFX_ON_WM(WM_ERASEBKGND, AfxOnEraseBkgnd, OnEraseBkgnd)

template <auto Handler> LRESULT AfxOnSize(CCmdTarget* pTarget, WPARAM wParam, LPARAM lParam)
{
    AfxCall<Handler>(pTarget, static_cast<UINT>(wParam),
                     static_cast<int>(LOWORD(static_cast<UINT_PTR>(lParam))),
                     static_cast<int>(HIWORD(static_cast<UINT_PTR>(lParam))));
    return 0;
}
#define ON_WM_SIZE() AFX_ON_WM(WM_SIZE, AfxOnSize, OnSize)

template <auto Handler> LRESULT AfxOnEnable(CCmdTarget* pTarget, WPARAM wParam, LPARAM)
{
    AfxCall<Handler>(pTarget, static_cast<BOOL>(wParam));
    return 0;
}
#define ON_WM_ENABLE() AFX_ON_WM(WM_ENABLE, AfxOnEnable, OnEnable)

template <auto Handler> LRESULT AfxOnFocus(CCmdTarget* pTarget, WPARAM wParam, LPARAM)
{
    AfxCall<Handler>(pTarget, CWnd::FromHandle(reinterpret_cast<HWND>(wParam)));
    return 0;
}
#define ON_WM_SETFOCUS() AFX_ON_WM(WM_SETFOCUS, AfxOnFocus, OnSetFocus)
#define ON_WM_KILLFOCUS() AFX_ON_WM(WM_KILLFOCUS, AfxOnFocus, OnKillFocus)
#define ON_WM_PALETTECHANGED() AFX_ON_WM(WM_PALETTECHANGED, AfxOnFocus, OnPaletteChanged)

template <auto Handler> LRESULT AfxOnActivateApp(CCmdTarget* pTarget, WPARAM wParam, LPARAM lParam)
{
    AfxCall<Handler>(pTarget, static_cast<BOOL>(wParam), static_cast<DWORD>(lParam));
    return 0;
}
#define ON_WM_ACTIVATEAPP() AFX_ON_WM(WM_ACTIVATEAPP, AfxOnActivateApp, OnActivateApp)

template <auto Handler> LRESULT AfxOnMouse(CCmdTarget* pTarget, WPARAM wParam, LPARAM lParam)
{
    AfxCall<Handler>(pTarget, static_cast<UINT>(wParam), CPoint(lParam));
    return 0;
}
#define ON_WM_MOUSEMOVE() AFX_ON_WM(WM_MOUSEMOVE, AfxOnMouse, OnMouseMove)
#define ON_WM_LBUTTONDOWN() AFX_ON_WM(WM_LBUTTONDOWN, AfxOnMouse, OnLButtonDown)
#define ON_WM_LBUTTONUP() AFX_ON_WM(WM_LBUTTONUP, AfxOnMouse, OnLButtonUp)
#define ON_WM_LBUTTONDBLCLK() AFX_ON_WM(WM_LBUTTONDBLCLK, AfxOnMouse, OnLButtonDblClk)

template <auto Handler> LRESULT AfxOnKey(CCmdTarget* pTarget, WPARAM wParam, LPARAM lParam)
{
    AfxCall<Handler>(pTarget, static_cast<UINT>(wParam),
                     static_cast<UINT>(LOWORD(static_cast<UINT_PTR>(lParam))),
                     static_cast<UINT>(HIWORD(static_cast<UINT_PTR>(lParam))));
    return 0;
}
#define ON_WM_KEYDOWN() AFX_ON_WM(WM_KEYDOWN, AfxOnKey, OnKeyDown)

// Positions have 16 bits. The bar is null if it is the window's own.
template <auto Handler> LRESULT AfxOnScroll(CCmdTarget* pTarget, WPARAM wParam, LPARAM lParam)
{
    AfxCall<Handler>(pTarget, static_cast<UINT>(LOWORD(wParam)), static_cast<UINT>(HIWORD(wParam)),
                     CWnd::FromHandle(reinterpret_cast<HWND>(lParam)));
    return 0;
}
#define ON_WM_HSCROLL() AFX_ON_WM(WM_HSCROLL, AfxOnScroll, OnHScroll)

template <auto Handler> LRESULT AfxOnTimer(CCmdTarget* pTarget, WPARAM wParam, LPARAM)
{
    AfxCall<Handler>(pTarget, static_cast<UINT_PTR>(wParam));
    return 0;
}
#define ON_WM_TIMER() AFX_ON_WM(WM_TIMER, AfxOnTimer, OnTimer)

// In screen coordinates; -1, -1 if the keyboard asked for the menu.
template <auto Handler> LRESULT AfxOnContextMenu(CCmdTarget* pTarget, WPARAM wParam, LPARAM lParam)
{
    AfxCall<Handler>(pTarget, CWnd::FromHandle(reinterpret_cast<HWND>(wParam)), CPoint(lParam));
    return 0;
}
#define ON_WM_CONTEXTMENU() AFX_ON_WM(WM_CONTEXTMENU, AfxOnContextMenu, OnContextMenu)

template <auto Handler> LRESULT AfxOnSettingChange(CCmdTarget* pTarget, WPARAM wParam, LPARAM lParam)
{
    AfxCall<Handler>(pTarget, static_cast<UINT>(wParam), reinterpret_cast<LPCTSTR>(lParam));
    return 0;
}
#define ON_WM_SETTINGCHANGE() AFX_ON_WM(WM_SETTINGCHANGE, AfxOnSettingChange, OnSettingChange)

template <auto Handler> LRESULT AfxOnNotify(CCmdTarget* pTarget, WPARAM, LPARAM lParam)
{
    LRESULT result = 0;
    AfxCall<Handler>(pTarget, reinterpret_cast<NMHDR*>(lParam), &result);
    return result;
}
#define ON_NOTIFY(code, id, handler) AFX_ON_CODE(WM_NOTIFY, code, id, id, AfxOnNotify, handler)

template <auto Handler> LRESULT AfxOnNotifyRange(CCmdTarget* pTarget, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    AfxCall<Handler>(pTarget, static_cast<UINT>(wParam), reinterpret_cast<NMHDR*>(lParam), &result);
    return result;
}
#define ON_NOTIFY_RANGE(code, first, last, handler)                                                          \
    AFX_ON_CODE(WM_NOTIFY, code, first, last, AfxOnNotifyRange, handler)
