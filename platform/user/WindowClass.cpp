// Windows of the library's own classes.
#include "WindowSide.h"

#include <QEvent>
#include <afxwin.h>
#include <map>

namespace
{

struct WindowClass {
    UINT Style;
    int Background; // a system colour's index and 1
};

// By name; the names stay where they are.
std::map<std::u16string, WindowClass>& WindowClasses()
{
    static auto* const classes = new std::map<std::u16string, WindowClass>;
    return *classes;
}

// A window that its messages draw.
class PlainWindow : public WidgetWindow<QWidget>
{
public:
    explicit PlainWindow(QWidget* parent, Qt::WindowFlags flags) : WidgetWindow(parent, flags)
    {
        setAttribute(Qt::WA_OpaquePaintEvent);
        setAttribute(Qt::WA_NoSystemBackground);
        setMouseTracking(true);
        setFocusPolicy(Qt::StrongFocus);
    }

protected:
    bool IsDrawnByMessage() const override { return true; }

    // What was drawn in the colours of before is drawn anew, whoever handles the message of the change.
    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
            Invalidate(rect(), true);
        return WidgetWindow::event(event);
    }
};

} // namespace

LPCTSTR AfxRegisterWndClass(UINT nClassStyle, HANDLE /*hCursor*/, HBRUSH hbrBackground, HANDLE /*hIcon*/)
{
    const auto background = static_cast<int>(reinterpret_cast<INT_PTR>(hbrBackground));
    CString name;
    name.Format(_T("Afx:%u:%d"), nClassStyle, background);
    const auto [place, isNew] =
        WindowClasses().try_emplace(name.GetString(), WindowClass{nClassStyle, background});
    return place->first.c_str();
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, int x,
                    int y, int nWidth, int nHeight, HWND hWndParent, UINT nID)
{
    const auto windowClass = WindowClasses().find(lpszClassName);
    const bool isChild = (dwStyle & WS_CHILD) != 0;
    const CREATESTRUCT creation{
        nullptr,        hWndParent,    nHeight,  nWidth, y, x, static_cast<LONG>(dwStyle),
        lpszWindowName, lpszClassName, dwExStyle};
    const auto make = [&](QWidget* parent) -> WindowSide* {
        if (windowClass == WindowClasses().end())
            return nullptr;
        auto* const window =
            new PlainWindow(parent, isChild ? Qt::Widget : Qt::Tool | Qt::FramelessWindowHint);
        window->Background = windowClass->second.Background;
        return window;
    };
    return WindowSide::Create(*this, creation, nID, make) ? TRUE : FALSE;
}
