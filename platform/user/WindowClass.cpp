// Window classes registered by the library, and their windows.
#include "AccessibleWindow.h"
#include "WidgetWindow.h"

#include <QKeyEvent>
#include <afxwin.h>
#include <map>

namespace
{

struct WindowClass {
    UINT Style;
    int Background; // a system colour's index and 1
};

// By name. References to the names stay valid.
std::map<std::u16string, WindowClass>& WindowClasses()
{
    static auto* const classes = new std::map<std::u16string, WindowClass>;
    return *classes;
}

// An owned popup is Qt's kind of popup: it stays above its owner, has all input while it is open, and appears
// where it is placed, even on a desktop that places all other windows itself.
Qt::WindowFlags FlagsOf(DWORD style, HWND parent)
{
    if ((style & WS_CHILD) != 0)
        return Qt::Widget;
    return (parent != nullptr ? Qt::Popup : Qt::Tool) | Qt::FramelessWindowHint;
}

// A window that WM_PAINT alone draws.
class PlainWindow : public WidgetWindow<QWidget>
{
public:
    explicit PlainWindow(QWidget* parent, Qt::WindowFlags flags) : WidgetWindow(parent, flags)
    {
        setMouseTracking(true);
        setFocusPolicy(Qt::StrongFocus);
        Surface().IsDrawnByMessage = true;
    }

    QAccessibleInterface* NewAccessible() override { return new AccessibleWindow(*this, QAccessible::List); }

protected:
    // Qt would close a popup at a press outside of it.
    void mousePressEvent(QMouseEvent* /*event*/) override {}

    // While a popup is open, the window manager doesn't see this key.
    void keyPressEvent(QKeyEvent* event) override
    {
        if (IsPopup() && event->key() == Qt::Key_F4 && event->modifiers().testFlag(Qt::AltModifier))
            close();
    }

    // The window's own handling of WM_CLOSE.
    void closeEvent(QCloseEvent* /*event*/) override { Destroy(); }

    // Colours and fonts may have changed. Doesn't depend on a handler of WM_SETTINGCHANGE.
    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
            Surface().Invalidate(rect(), true);
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
    const CREATESTRUCT creation{
        nullptr,        hWndParent,    nHeight,  nWidth, y, x, static_cast<LONG>(dwStyle),
        lpszWindowName, lpszClassName, dwExStyle};
    const auto make = [&](QWidget* parent) -> Window* {
        if (windowClass == WindowClasses().end())
            return nullptr;
        auto* const window = new PlainWindow(parent, FlagsOf(dwStyle, hWndParent));
        window->Background = windowClass->second.Background;
        return window;
    };
    return Window::Create(*this, creation, nID, make) ? TRUE : FALSE;
}
