// Windows and messages: the messages of real events and their order, creation and destruction, painting.
#include "support/Gui.h"
#include "support/Process.h"

#include <QtWidgets>
#include <commctrl.h>
#include <malloc.h>

namespace
{

using namespace test;

constexpr COLORREF red = RGB(255, 0, 0);
constexpr COLORREF green = RGB(0, 255, 0);
constexpr COLORREF blue = RGB(0, 0, 255);

// A window of 60 x 50 pixels at 40, 30, or a child of 20 x 20 pixels at 10, 5, that records its messages.
class k_RecordingWindow : public CWnd
{
public:
    explicit k_RecordingWindow(std::string name) : m_name(std::move(name)) {}

    BOOL CreatePopup(DWORD style = WS_POPUP | WS_VISIBLE)
    {
        const LPCTSTR face = ClassWith(COLOR_BTNFACE);
        return CreateEx(0, face, _T("title"), style, 40, 30, 60, 50, nullptr, 0);
    }
    BOOL CreateChild(CWnd& parent, UINT id)
    {
        const LPCTSTR white = ClassWith(COLOR_WINDOW);
        return CreateEx(0, white, _T(""), WS_CHILD | WS_VISIBLE, 10, 5, 20, 20, parent.m_hWnd, id);
    }
    // Creates and shows the window with the child, whose id is 3, and drops the records.
    void Open(k_RecordingWindow* child = nullptr)
    {
        ASSERT_TRUE(CreatePopup() && (child == nullptr || child->CreateChild(*this, 3)));
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&WidgetOf(*this)));
        test::Settle();
        Heard();
    }

    BOOL PreTranslateMessage(MSG* pMsg) override
    {
        if (pMsg->message == m_stopped)
            Say("stops");
        return pMsg->message == m_stopped ? TRUE : CWnd::PreTranslateMessage(pMsg);
    }

    UINT m_stopped = 0;
    bool m_staysOpen = false; // when it is to close
    int m_createResult = 0;
    COLORREF m_fill = CLR_INVALID;
    int m_paints = 0;
    std::size_t m_tipLength = 0;

protected:
    void PostNcDestroy() override { Say("gone"); }
    void Say(const std::string& event) const { test::Note(m_name + ' ' + event); }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        const CPoint point(lParam);
        switch (message) {
        case WM_CREATE:
            Say("create " + std::to_string(reinterpret_cast<LPCREATESTRUCT>(lParam)->cx));
            return m_createResult;
        case WM_DESTROY:
        case WM_NCDESTROY:
            Say(message == WM_DESTROY ? "destroy" : "ncdestroy");
            break;
        case WM_PAINT:
            Paint();
            return 0;
        case WM_SIZE:
        case WM_MOUSEMOVE:
            Say((message == WM_SIZE ? "size " : "move ") + At(point));
            break;
        case WM_ENABLE:
            Say(wParam != FALSE ? "enabled" : "disabled");
            return 0;
        case WM_LBUTTONDOWN:
            Say("down " + At(point) + ((wParam & MK_LBUTTON) != 0 ? " L" : ""));
            return 0;
        case WM_LBUTTONUP:
            Say("up " + At(point) + " at " + At(CPoint(static_cast<LPARAM>(GetMessagePos()))));
            return 0;
        case WM_KEYDOWN:
            Say("key " + std::to_string(wParam));
            return 0;
        case WM_CONTEXTMENU:
            Say("menu " + At(point) + " of " +
                std::to_string(FromHandle(reinterpret_cast<HWND>(wParam))->GetDlgCtrlID()));
            break;
        case WM_CLOSE:
            if (m_staysOpen)
                return 0;
            break;
        case WM_NOTIFY:
            Say("text for " + std::to_string(wParam) + " at " + At(GetCurrentMessage()->pt));
            std::u16string(_T("a <b>")).copy(reinterpret_cast<NMTTDISPINFOW*>(lParam)->szText, m_tipLength);
            return TRUE;
        default:
            break;
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }

private:
    static LPCTSTR ClassWith(INT_PTR color)
    {
        return AfxRegisterWndClass(0, nullptr, reinterpret_cast<HBRUSH>(color + 1));
    }
    static std::string At(CPoint point) { return std::to_string(point.x) + ',' + std::to_string(point.y); }
    void Paint()
    {
        ++m_paints;
        CPaintDC dc(this);
        if (m_fill != CLR_INVALID)
            dc.FillSolidRect(0, 0, 10, 10, m_fill);
    }

    std::string m_name;
};

TEST(Windows, AreCreatedAndDestroyedFromTheInsideOut)
{
    k_RecordingWindow parent("parent");
    k_RecordingWindow child("child");
    Heard();
    ASSERT_TRUE(parent.CreatePopup() && child.CreateChild(parent, 3));
    EXPECT_EQ(child.GetDlgCtrlID(), 3);
    EXPECT_EQ(child.GetStyle(), WS_CHILD | WS_VISIBLE);
    EXPECT_EQ(WidgetOf(parent).windowTitle(), "title");
    EXPECT_EQ(child.GetParent(), &parent);
    test::Settle();
    EXPECT_EQ(Heard(), "parent create 60, parent size 60,50, child create 20, child size 20,20");

    const HWND handle = child.m_hWnd;
    parent.m_staysOpen = true;
    WidgetOf(parent).close(); // as the window manager does
    EXPECT_TRUE(WidgetOf(parent).isVisible());
    parent.m_staysOpen = false;
    WidgetOf(parent).close();
    EXPECT_TRUE(parent.m_hWnd == nullptr && child.m_hWnd == nullptr);
    EXPECT_TRUE(!IsWindow(handle) && CWnd::FromHandle(handle) == nullptr);
    EXPECT_EQ(SendMessageW(handle, WM_PAINT, 0, 0), 0);
    EXPECT_THROW(CPaintDC{&child}, CResourceException*);
    EXPECT_THROW(CClientDC{&child}, CResourceException*);
    test::Settle();
    EXPECT_EQ(Heard(),
              "parent destroy, child destroy, child ncdestroy, child gone, parent ncdestroy, parent gone");

    parent.m_createResult = -1;
    EXPECT_FALSE(parent.CreatePopup());
    EXPECT_EQ(Heard(), "parent create 60, parent destroy, parent ncdestroy, parent gone");
    EXPECT_FALSE(child.CreateChild(parent, 1)); // without a parent window
    EXPECT_EQ(Heard(), "child gone");
}

TEST(Windows, GoWithTheirObjectsAndLeaveNothing)
{
    std::size_t before = 0;
    for (int round = 0; round < 400; ++round) {
        if (round == 100)
            before = mallinfo2().uordblks;
        k_RecordingWindow window("window");
        ASSERT_TRUE(window.CreatePopup(WS_POPUP));
        CFont font; // is deleted while the window holds it
        const LOGFONTW any{};
        ASSERT_TRUE(font.CreateFontIndirect(&any));
        window.SetFont(&font);
        ReleaseDC(window.m_hWnd, GetWindowDC(window.m_hWnd));
        test::Settle();
        Heard();
    }
    EXPECT_LE(mallinfo2().uordblks, before + 20000);
}

TEST(Windows, InputBecomesMessages)
{
    k_RecordingWindow parent("parent");
    k_RecordingWindow child("child");
    parent.Open(&child);
    test::MoveMouse(parent, {4, 6});
    test::MoveMouse(child, {4, 6}); // never reaches the parent, even if the child leaves it to Qt
    test::PressMouse(child, {1, 2});
    test::ReleaseMouse(child, {3, 2});
    EXPECT_EQ(Heard(), "parent move 4,6, child move 4,6, child down 1,2 L, child up 3,2 at 53,37");
    for (const UINT key : {VK_LEFT, VK_ADD, VK_SUBTRACT, UINT{'+'}, UINT{'!'}, UINT{'A'}})
        test::PressKey(parent, key);
    EXPECT_EQ(Heard(), "parent key 37, parent key 107, parent key 109, parent key 187, parent key 231, "
                       "parent key 65");

    parent.m_stopped = WM_KEYDOWN; // a parent sees the input of its children first
    test::PressKey(child, VK_LEFT);
    child.EnableWindow(FALSE);
    EXPECT_FALSE(child.IsWindowEnabled());
    test::PressMouse(child, {1, 2}); // belongs to its parent
    child.EnableWindow(TRUE);
    test::PressMouse(child, {1, 2});
    EXPECT_EQ(Heard(), "parent stops, child disabled, parent down 11,7 L, child enabled, child down 1,2 L");
}

TEST(Windows, CaptureBringsTheMouseFromEverywhere)
{
    k_RecordingWindow first("first");
    k_RecordingWindow second("second");
    first.Open();
    second.Open();
    second.MoveWindow(200, 100, 60, 50);
    test::Settle();
    first.SetCapture();
    EXPECT_EQ(CWnd::GetCapture(), &first);
    EXPECT_EQ(QWidget::mouseGrabber(), &WidgetOf(first));
    Heard();
    test::ReleaseMouse(second, {1, 1});
    ReleaseCapture();
    EXPECT_EQ(CWnd::GetCapture(), nullptr);
    EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
    test::ReleaseMouse(second, {1, 1});
    EXPECT_EQ(Heard(), "first up 161,71 at 201,101, second up 1,1 at 201,101");
    first.SetCapture();
    const QWidget& widget = WidgetOf(first);
    first.DestroyWindow();
    EXPECT_FALSE(widget.isVisible());
    EXPECT_EQ(CWnd::GetCapture(), nullptr);
}

TEST(Windows, CaptureOfAWindowThatIsNotShownYetBeginsWhenItIs)
{
    k_RecordingWindow before("before");
    k_RecordingWindow window("window");
    before.Open();
    before.SetCapture(); // until the other takes it
    ASSERT_TRUE(window.CreatePopup(WS_POPUP));
    window.MoveWindow(40, 30, 80, 70);
    EXPECT_EQ(Heard(), "window create 60, window size 60,50, window size 80,70"); // at once
    QWidget& widget = WidgetOf(window);
    window.SetCapture();
    EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
    widget.show();
    const QDeadlineTimer end(std::chrono::seconds(5));
    while (QWidget::mouseGrabber() == nullptr && !end.hasExpired())
        test::Settle();
    EXPECT_EQ(QWidget::mouseGrabber(), &widget);
    if (!test::isOnX) {
        EXPECT_EQ(test::FailuresOnX("*Capture*"), "");
        return;
    }
    Heard();
    QCursor::setPos(300, 200);
    std::string moved;
    for (; moved.empty() && !end.hasExpired(); moved = Heard())
        test::Settle();
    EXPECT_EQ(moved, "window move 260,170");
}

// Throws at one message: exceptions of the framework, static and on the heap, and others.
class k_Thrower : public k_RecordingWindow
{
public:
    explicit k_Thrower(UINT message) : k_RecordingWindow("window"), m_message(message) {}

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_SETFONT) {
            EXPECT_THROW(SendMessage(WM_ENABLE), CInvalidArgException*);
            return Default(); // of the same message
        }
        if (message != m_message)
            return k_RecordingWindow::WindowProc(message, wParam, lParam);
        Say("throws");
        if (message == WM_ENABLE)
            AfxThrowInvalidArgException();
        if (message == WM_PAINT)
            throw std::bad_alloc();
        AfxThrowFileException(CFileException::diskFull, 0, nullptr);
    }

private:
    UINT m_message;
};

TEST(Windows, WhatAHandlerThrowsEndsWithItsMessageUnlessCodeSentIt)
{
    const auto destroy = [](k_Thrower& window) { window.DestroyWindow(); };
    const auto press = [](k_Thrower& window) { test::PressMouse(window, {1, 1}); };
    const auto look = [](k_Thrower& window) { test::PixelOf(window, {1, 1}); };
    const auto leave = [](k_Thrower&) {
        for (const auto state : {Qt::ApplicationInactive, Qt::ApplicationActive})
            Q_EMIT qApp->applicationStateChanged(state);
    };
    using Way = std::pair<UINT, std::function<void(k_Thrower&)>>;
    const Way ways[] = {{WM_LBUTTONDOWN, press},
                        {WM_ACTIVATEAPP, leave},
                        {WM_PAINT, look},
                        {WM_DESTROY, destroy},
                        {WM_NCDESTROY, destroy}};
    for (const auto& [message, act] : ways) {
        k_Thrower window(message);
        window.Open();
        window.InvalidateRect(nullptr);
        act(window);
        EXPECT_NE(Heard().find("window throws"), std::string::npos) << message;
        EXPECT_EQ(IsWindow(window.m_hWnd) != FALSE, message != WM_DESTROY && message != WM_NCDESTROY);
    }
    k_Thrower window(WM_ENABLE);
    window.Open();
    const auto font = reinterpret_cast<LRESULT>(::GetStockObject(DEFAULT_GUI_FONT));
    window.SendMessage(WM_SETFONT, static_cast<WPARAM>(font));
    EXPECT_EQ(window.SendMessage(WM_GETFONT), font);
    EXPECT_FALSE(k_Thrower(WM_CREATE).CreatePopup());
}

TEST(Windows, AreAskedForMenusAndForTheTextOfTheirToolTip)
{
    k_RecordingWindow parent("parent");
    k_RecordingWindow child("child");
    parent.Open(&child);
    for (const auto reason : {QContextMenuEvent::Mouse, QContextMenuEvent::Keyboard}) {
        QContextMenuEvent event(reason, {1, 2}, {51, 37});
        QCoreApplication::sendEvent(&WidgetOf(child), &event);
    }
    EXPECT_EQ(Heard(), "child menu 51,37 of 3, parent menu 51,37 of 3, child menu -1,-1 of 3, "
                       "parent menu -1,-1 of 3");
    const auto rest = [&parent] {
        QHelpEvent event(QEvent::ToolTip, {3, 4}, {43, 34});
        QCoreApplication::sendEvent(&WidgetOf(parent), &event);
        return QToolTip::text();
    };
    EXPECT_EQ(rest(), "");
    EXPECT_EQ(Heard(), ""); // unless it is enabled
    parent.EnableToolTips(TRUE);
    EXPECT_EQ(rest(), "");
    EXPECT_EQ(Heard(), "parent text for 0 at 43,34");
    parent.m_tipLength = 5;
    EXPECT_NE(rest().indexOf("&lt;b"), -1); // no markup
    parent.m_tipLength = 0;
    rest();
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, 2000)) << "no text here";
}

TEST(WindowPainting, IsOnTheBackgroundAndAtAnyTime)
{
    k_RecordingWindow window("window");
    k_RecordingWindow child("child");
    window.m_fill = red;
    window.Open(&child);
    EXPECT_EQ(PixelOf(child, {5, 5}), GetSysColor(COLOR_WINDOW)); // its own class
    child.DestroyWindow();
    EXPECT_EQ(PixelOf(window, {5, 5}), red);
    EXPECT_EQ(PixelOf(window, {15, 15}), GetSysColor(COLOR_BTNFACE));
    CClientDC(&window).FillSolidRect(12, 12, 10, 10, blue);
    test::Settle();
    EXPECT_EQ(PixelOf(window, {15, 15}), blue); // persists: nothing was invalid
    window.m_fill = green;
    const RECT part{0, 0, 5, 5};
    const int paints = window.m_paints;
    window.RedrawWindow(&part);
    EXPECT_EQ(window.m_paints, paints + 1); // at once
    EXPECT_EQ(PixelOf(window, {2, 2}), green);
    EXPECT_EQ(PixelOf(window, {7, 7}), red); // outside of the invalid part
    window.InvalidateRect(nullptr);
    test::Settle();
    EXPECT_EQ(PixelOf(window, {15, 15}), GetSysColor(COLOR_BTNFACE));
    test::ChangeSettings([&] { EXPECT_EQ(PixelOf(window, {15, 15}), RGB(255, 0, 255)); });
    EXPECT_EQ(PixelOf(window, {15, 15}), GetSysColor(COLOR_BTNFACE));
    const test::DesktopColors colors({{QPalette::Button, blue}});
    test::Settle();
    window.MoveWindow(40, 30, 80, 70, FALSE);
    EXPECT_EQ(PixelOf(window, {75, 65}), blue); // new pixels
}

TEST(WindowPainting, WaitsWhileTheWindowIsLocked)
{
    k_RecordingWindow window("window");
    k_RecordingWindow other("other");
    window.Open();
    other.Open();
    window.SetActiveWindow();
    test::Settle();
    EXPECT_EQ(other.SetActiveWindow(), &window);
    EXPECT_TRUE(LockWindowUpdate(window.m_hWnd));
    EXPECT_FALSE(LockWindowUpdate(other.m_hWnd));
    window.m_paints = 0;
    window.RedrawWindow();
    test::Settle();
    EXPECT_EQ(window.m_paints, 0);
    LockWindowUpdate(nullptr);
    test::Settle();
    EXPECT_EQ(window.m_paints, 1);
    EXPECT_TRUE(LockWindowUpdate(window.m_hWnd));
    window.DestroyWindow();
    EXPECT_TRUE(LockWindowUpdate(other.m_hWnd));
    LockWindowUpdate(nullptr);
}

} // namespace
