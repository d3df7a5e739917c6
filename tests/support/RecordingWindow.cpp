#include "RecordingWindow.h"

namespace test
{

namespace
{

std::string heard;

LPCTSTR ClassWith(int color)
{
    return AfxRegisterWndClass(0, nullptr, reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(color + 1)));
}

} // namespace

const UINT registered = RegisterWindowMessageW(_T("RecordingWindow"));

BEGIN_MESSAGE_MAP(k_RecordingWindow, CWnd)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_NCDESTROY()
ON_WM_PAINT()
ON_WM_SIZE()
ON_WM_ENABLE()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_KEYDOWN()
ON_REGISTERED_MESSAGE(registered, ThisClass::OnRegistered)
ON_BN_CLICKED(7, ThisClass::OnClicked)
ON_COMMAND(100, ThisClass::OnMenu)
ON_NOTIFY(-5, 3, ThisClass::OnTold)
ON_WM_CONTEXTMENU()
ON_NOTIFY_RANGE(TTN_NEEDTEXTW, 0, 0xFFFF, ThisClass::OnNeedText)
END_MESSAGE_MAP()

void Note(const std::string& event)
{
    heard += (heard.empty() ? "" : ", ") + event;
}

std::string Heard()
{
    return std::exchange(heard, {});
}

std::string At(CPoint point)
{
    return std::to_string(point.x) + ',' + std::to_string(point.y);
}

BOOL k_RecordingWindow::CreatePopup(DWORD style)
{
    return CreateEx(0, ClassWith(COLOR_BTNFACE), _T("title"), style, 40, 30, 60, 50, nullptr, 0);
}

BOOL k_RecordingWindow::CreateChild(CWnd& parent, UINT id)
{
    return CreateEx(0, ClassWith(COLOR_WINDOW), _T(""), WS_CHILD | WS_VISIBLE, 10, 5, 20, 20, parent.m_hWnd,
                    id);
}

void k_RecordingWindow::Open(k_RecordingWindow* child)
{
    ASSERT_TRUE(CreatePopup() && (child == nullptr || child->CreateChild(*this, 3)));
    Settle();
    Heard();
}

} // namespace test
