// Windows of the library's own classes.
#include "Application.h"
#include "WindowSide.h"

#include <QtConvert.h>
#include <afxwin.h>
#include <map>

namespace
{

constexpr int notCreated = -1;

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
    if (windowClass == WindowClasses().end() || m_hWnd != nullptr || !EnsureApplication())
        return FALSE;
    WindowSide* const parent = WindowSide::Of(hWndParent);
    const bool isChild = (dwStyle & WS_CHILD) != 0;
    if (isChild && parent == nullptr)
        return FALSE;
    const Qt::WindowFlags flags = isChild ? Qt::Widget : Qt::Tool | Qt::FramelessWindowHint;
    auto* const window = new PlainWindow(parent != nullptr ? &parent->Widget() : nullptr, flags);
    window->Style = dwStyle;
    window->Id = static_cast<int>(nID);
    window->Background = windowClass->second.Background;
    window->SetText(lpszWindowName != nullptr ? gdi::ToQString(lpszWindowName) : QString());
    window->setGeometry(x, y, nWidth, nHeight);
    window->setEnabled((dwStyle & WS_DISABLED) == 0);
    SubclassWindow(window->Handle());

    CREATESTRUCT creation{nullptr,        hWndParent,    nHeight,  nWidth, y, x, static_cast<LONG>(dwStyle),
                          lpszWindowName, lpszClassName, dwExStyle};
    if (window->SendContained(WM_CREATE, 0, reinterpret_cast<LPARAM>(&creation), notCreated) == notCreated) {
        window->Destroy();
        return FALSE;
    }
    if ((dwStyle & WS_VISIBLE) != 0) {
        window->show();
        if (!isChild) {
            window->activateWindow();
            window->setFocus();
        }
    }
    return TRUE;
}
