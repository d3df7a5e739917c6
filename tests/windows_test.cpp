// Windows and messages: what real events become, who sees them in which order, and how a window ends.
#include "support/Gui.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QContextMenuEvent>
#include <QCursor>
#include <QDeadlineTimer>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <WindowSide.h>
#include <afxwin.h>
#include <algorithm>
#include <commctrl.h>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <vector>

namespace
{

UINT registered = 0;

std::vector<std::string> heard;

std::string At(CPoint point)
{
    return std::to_string(point.x) + ',' + std::to_string(point.y);
}

// A window that notes what it is sent.
class k_Witness : public CWnd
{
public:
    explicit k_Witness(std::string name) : m_name(std::move(name)) {}

    BOOL CreatePopup(CWnd* owner, DWORD style = WS_POPUP | WS_VISIBLE)
    {
        return CreateEx(0, AfxRegisterWndClass(0, nullptr, Brush(COLOR_BTNFACE)), _T("title"), style, 40, 30,
                        60, 50, owner != nullptr ? owner->m_hWnd : nullptr, 0);
    }
    BOOL CreateChild(CWnd& parent, UINT id)
    {
        return CreateEx(0, AfxRegisterWndClass(0, nullptr, Brush(COLOR_WINDOW)), _T(""),
                        WS_CHILD | WS_VISIBLE, 10, 5, 20, 20, parent.m_hWnd, id);
    }

    BOOL PreTranslateMessage(MSG* pMsg) override
    {
        if (pMsg->message == m_stopped)
            Note("stops");
        return pMsg->message == m_stopped ? TRUE : CWnd::PreTranslateMessage(pMsg);
    }

    UINT m_stopped = 0;
    UINT m_passedOn = 0;
    int m_createResult = 0;
    COLORREF m_fill = CLR_INVALID;
    DWORD m_messagePos = 0;
    int m_paints = 0;
    std::size_t m_tipLength = 0;

protected:
    static HBRUSH Brush(int color) { return reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(color + 1)); }
    void Note(const std::string& event) { heard.push_back(m_name + ' ' + event); }

    afx_msg int OnCreate(LPCREATESTRUCT creation)
    {
        Note("create " + std::to_string(creation->cx));
        return m_createResult;
    }
    afx_msg void OnDestroy()
    {
        Note("destroy");
        Default();
    }
    afx_msg void OnNcDestroy()
    {
        Note("ncdestroy");
        CWnd::OnNcDestroy();
    }
    afx_msg void OnPaint()
    {
        ++m_paints;
        CPaintDC dc(this);
        if (m_fill != CLR_INVALID)
            dc.FillSolidRect(0, 0, 10, 10, m_fill);
    }
    afx_msg void OnSize(UINT, int cx, int cy)
    {
        Note("size " + std::to_string(cx) + 'x' + std::to_string(cy));
    }
    afx_msg void OnEnable(BOOL enable) { Note(enable != FALSE ? "enabled" : "disabled"); }
    afx_msg void OnMouseMove(UINT, CPoint point) { Note("move " + At(point)); }
    afx_msg void OnLButtonDown(UINT flags, CPoint point)
    {
        Note("down " + At(point) + ((flags & MK_LBUTTON) != 0 ? " L" : ""));
    }
    afx_msg void OnLButtonUp(UINT, CPoint point)
    {
        m_messagePos = GetMessagePos();
        Note("up " + At(point));
    }
    afx_msg void OnKeyDown(UINT key, UINT, UINT) { Note("key " + std::to_string(key)); }
    afx_msg LRESULT OnRegistered(WPARAM wParam, LPARAM lParam)
    {
        Note("registered");
        return static_cast<LRESULT>(wParam) + lParam;
    }
    afx_msg void OnClicked() { Note("clicked"); }
    afx_msg BOOL OnMouseWheel(UINT, short delta, CPoint)
    {
        Note("wheel " + std::to_string(delta));
        return TRUE;
    }
    afx_msg void OnSettingChange(UINT, LPCTSTR)
    {
        Note("settings, face " + std::to_string(GetSysColor(COLOR_BTNFACE)));
    }
    afx_msg void OnTold(NMHDR* header, LRESULT* result)
    {
        Note("told by " + std::to_string(header->idFrom));
        *result = 5;
    }
    afx_msg void OnOwnNotification(NMHDR*, LRESULT* result)
    {
        Note("hears its own");
        *result = 6;
    }
    afx_msg void OnRange(UINT id) { Note("command " + std::to_string(id)); }
    afx_msg void OnContextMenu(CWnd* from, CPoint point)
    {
        Note("menu " + At(point) + " of " + std::to_string(from->GetDlgCtrlID()));
        if (m_passedOn == WM_CONTEXTMENU)
            Default();
    }
    afx_msg void OnNeedText(UINT id, NMHDR* header, LRESULT*)
    {
        const POINT point = GetCurrentMessage()->pt;
        Note("text for " + std::to_string(id) + " at " + At(point));
        std::u16string(_T("a <b>")).copy(reinterpret_cast<NMTTDISPINFOW*>(header)->szText, m_tipLength);
    }

    DECLARE_MESSAGE_MAP()

private:
    std::string m_name;
};

BEGIN_MESSAGE_MAP(k_Witness, CWnd)
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
ON_COMMAND_RANGE(100, 102, ThisClass::OnRange)
ON_WM_MOUSEWHEEL()
ON_WM_SETTINGCHANGE()
ON_NOTIFY(-5, 3, ThisClass::OnTold)
ON_NOTIFY_REFLECT(-6, ThisClass::OnOwnNotification)
ON_WM_CONTEXTMENU()
ON_NOTIFY_RANGE(TTN_NEEDTEXTW, 0, 0xFFFF, ThisClass::OnNeedText)
END_MESSAGE_MAP()

class Windows : public testing::Test
{
protected:
    Windows()
    {
        registered = RegisterWindowMessageW(_T("WindowsTest"));
        heard.clear();
    }

    static std::vector<std::string> Heard() { return std::exchange(heard, {}); }
    using Sequence = std::vector<std::string>;

    // Shows the window and what is in it, and forgets what they heard meanwhile.
    static void Open(k_Witness& window, k_Witness* child = nullptr)
    {
        ASSERT_TRUE(window.CreatePopup(nullptr) && (child == nullptr || child->CreateChild(window, 3)));
        test::Settle();
        Heard();
    }
};

TEST_F(Windows, AreCreatedAndDestroyedFromTheInsideOut)
{
    k_Witness parent("parent");
    k_Witness child("child");
    ASSERT_TRUE(parent.CreatePopup(nullptr));
    ASSERT_TRUE(child.CreateChild(parent, 3));
    EXPECT_EQ(child.GetDlgCtrlID(), 3);
    EXPECT_EQ(child.GetParent(), &parent);
    EXPECT_EQ(CWnd::FromHandle(child.m_hWnd), &child);
    test::Settle();
    EXPECT_EQ(Heard(),
              (Sequence{"parent create 60", "parent size 60x50", "child create 20", "child size 20x20"}));

    const HWND handle = child.m_hWnd;
    EXPECT_TRUE(parent.DestroyWindow());
    EXPECT_EQ(Heard(), (Sequence{"parent destroy", "child destroy", "child ncdestroy", "parent ncdestroy"}));
    EXPECT_EQ(parent.m_hWnd, nullptr);
    EXPECT_EQ(child.m_hWnd, nullptr);
    EXPECT_FALSE(IsWindow(handle));
    EXPECT_EQ(SendMessageW(handle, WM_PAINT, 0, 0), 0);
    EXPECT_EQ(CWnd::FromHandle(handle), nullptr);
    test::Settle();
    EXPECT_EQ(Heard(), Sequence{});
}

TEST_F(Windows, ACreationThatIsRefusedLeavesNothing)
{
    k_Witness window("window");
    window.m_createResult = -1;
    EXPECT_FALSE(window.CreatePopup(nullptr));
    EXPECT_EQ(window.m_hWnd, nullptr);
    EXPECT_EQ(Heard(), (Sequence{"window create 60", "window destroy", "window ncdestroy"}));
    k_Witness orphan("orphan");
    EXPECT_FALSE(orphan.CreateChild(window, 1)); // no parent to be in
}

TEST_F(Windows, InputBecomesMessages)
{
    k_Witness parent("parent");
    k_Witness child("child");
    Open(parent, &child);
    test::MoveMouse(parent, {4, 6});
    test::PressMouse(child, {1, 2});
    test::ReleaseMouse(child, {3, 2});
    test::PressKey(parent, VK_LEFT);
    EXPECT_EQ(Heard(), (Sequence{"parent move 4,6", "child down 1,2 L", "child up 3,2", "parent key 37"}));
    EXPECT_EQ(child.m_messagePos, static_cast<DWORD>(MAKELPARAM(40 + 10 + 3, 30 + 5 + 2)));

    for (const UINT key : {VK_ADD, VK_SUBTRACT, UINT{'+'}, UINT{'!'}, UINT{'A'}})
        test::PressKey(parent, key);
    EXPECT_EQ(Heard(), (Sequence{"parent key 107", "parent key 109", "parent key 187", "parent key 231",
                                 "parent key 65"}));

    parent.m_stopped = WM_KEYDOWN; // a window sees the input of those in it before they do
    test::PressKey(child, VK_LEFT);
    test::PressMouse(child, {1, 2});
    EXPECT_EQ(Heard(), (Sequence{"parent stops", "child down 1,2 L"}));

    child.EnableWindow(FALSE);
    EXPECT_FALSE(child.IsWindowEnabled());
    child.EnableWindow(TRUE);
    EXPECT_EQ(Heard(), (Sequence{"child disabled", "child enabled"}));
    child.EnableWindow(FALSE);
    test::PressMouse(child, {1, 2}); // is its parent's
    EXPECT_EQ(Heard(), (Sequence{"child disabled", "parent down 11,7 L"}));
}

TEST_F(Windows, CaptureBringsTheMouseFromEverywhere)
{
    k_Witness first("first");
    k_Witness second("second");
    ASSERT_TRUE(first.CreatePopup(nullptr));
    ASSERT_TRUE(second.CreatePopup(nullptr));
    second.MoveWindow(200, 100, 60, 50);
    test::Settle();
    first.SetCapture();
    EXPECT_EQ(CWnd::GetCapture(), &first);
    Heard();
    test::ReleaseMouse(second, {1, 1});
    EXPECT_EQ(Heard(), (Sequence{"first up 161,71"}));
    ReleaseCapture();
    EXPECT_EQ(CWnd::GetCapture(), nullptr);
    test::ReleaseMouse(second, {1, 1});
    EXPECT_EQ(Heard(), (Sequence{"second up 1,1"}));
    first.SetCapture();
    first.DestroyWindow();
    EXPECT_EQ(CWnd::GetCapture(), nullptr);
}

TEST_F(Windows, CaptureOfAWindowThatIsNotShownYetBeginsWhenItIs)
{
    k_Witness window("window");
    ASSERT_TRUE(window.CreatePopup(nullptr, WS_POPUP));
    QWidget& widget = WindowSide::Of(window.m_hWnd)->Widget();
    window.SetCapture();
    EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
    widget.show();
    const QDeadlineTimer end(std::chrono::seconds(5));
    while (QWidget::mouseGrabber() == nullptr && !end.hasExpired())
        test::Settle();
    EXPECT_EQ(QWidget::mouseGrabber(), &widget);
    if (QGuiApplication::platformName() != "xcb")
        return;
    Heard();
    QCursor::setPos(300, 200);
    while (heard.empty() && !end.hasExpired())
        test::Settle();
    EXPECT_EQ(Heard(), Sequence{"window move 260,170"});
}

TEST_F(Windows, RegisteredMessagesAndCommandsFindTheirHandlers)
{
    k_Witness window("window");
    Open(window);
    EXPECT_EQ(window.SendMessage(registered, 40, 2), 42);
    window.SendMessage(WM_COMMAND, MAKEWPARAM(7, BN_CLICKED));
    window.SendMessage(WM_COMMAND, MAKEWPARAM(8, BN_CLICKED));
    for (const UINT id : {99U, 100U, 102U, 103U})
        window.SendMessage(WM_COMMAND, MAKEWPARAM(id, 0));
    EXPECT_EQ(Heard(),
              (Sequence{"window registered", "window clicked", "window command 100", "window command 102"}));
}

TEST_F(Windows, NotificationsGoBackToTheControlFirst)
{
    k_Witness parent("parent");
    k_Witness child("child");
    Open(parent, &child);
    const auto notify = [&](int code) {
        NMHDR header{child.m_hWnd, 3, static_cast<UINT>(code)};
        return parent.SendMessage(WM_NOTIFY, 3, reinterpret_cast<LPARAM>(&header));
    };
    EXPECT_EQ(notify(-5), 5);
    EXPECT_EQ(notify(-6), 6);
    EXPECT_EQ(notify(-7), 0);
    EXPECT_EQ(Heard(), (Sequence{"parent told by 3", "child hears its own"}));
}

// Throws at one message: what the framework throws, standing and on the heap, and what it doesn't.
class k_Thrower : public k_Witness
{
public:
    explicit k_Thrower(UINT message) : k_Witness("window"), m_message(message) {}

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_SETFONT) {
            EXPECT_THROW(SendMessage(registered), CInvalidArgException*);
            return Default(); // of this message still
        }
        if (message != m_message)
            return k_Witness::WindowProc(message, wParam, lParam);
        Note("throws");
        if (message == registered)
            AfxThrowInvalidArgException();
        if (message == WM_PAINT)
            throw std::bad_alloc();
        AfxThrowFileException(CFileException::diskFull, 0, nullptr);
    }

private:
    UINT m_message;
};

TEST_F(Windows, WhatAHandlerThrowsEndsWithItsMessageUnlessCodeSentIt)
{
    const auto destroy = [](k_Thrower& window) { window.DestroyWindow(); };
    const std::pair<UINT, std::function<void(k_Thrower&)>> ways[] = {
        {WM_LBUTTONDOWN,
         [](k_Thrower& window) {
             test::PressMouse(window, {1, 1});
         }},
        {WM_ACTIVATEAPP,
         [](k_Thrower&) {
             for (const auto state : {Qt::ApplicationInactive, Qt::ApplicationActive})
                 Q_EMIT qApp->applicationStateChanged(state);
         }},
        {WM_PAINT,
         [](k_Thrower& window) {
             test::PixelOf(window, {1, 1});
         }},
        {WM_DESTROY, destroy},
        {WM_NCDESTROY, destroy},
    };
    for (const auto& [message, act] : ways) {
        k_Thrower window(message);
        ASSERT_TRUE(window.CreatePopup(nullptr));
        test::Settle();
        Heard();
        window.InvalidateRect(nullptr);
        act(window);
        EXPECT_GE(std::ranges::count(Heard(), "window throws"), 1) << message;
        EXPECT_EQ(IsWindow(window.m_hWnd) != FALSE, message != WM_DESTROY && message != WM_NCDESTROY);
    }
    k_Thrower window(registered);
    ASSERT_TRUE(window.CreatePopup(nullptr));
    const auto font = reinterpret_cast<LRESULT>(::GetStockObject(DEFAULT_GUI_FONT));
    window.SendMessage(WM_SETFONT, static_cast<WPARAM>(font));
    EXPECT_EQ(window.SendMessage(WM_GETFONT), font);
    k_Thrower refused(WM_CREATE);
    EXPECT_FALSE(refused.CreatePopup(nullptr));
}

// A window whose only child is tied to a member.
class k_Dialog : public k_Witness
{
public:
    k_Dialog() : k_Witness("dialog") {}
    k_Witness m_Control{"control"};
    int m_id = 3;

protected:
    void DoDataExchange(CDataExchange* pDX) override { DDX_Control(pDX, m_id, m_Control); }
};

TEST_F(Windows, ControlsAreTiedToMembersByDataExchange)
{
    k_Dialog dialog;
    k_Witness template3("template");
    Open(dialog, &template3);
    const HWND handle = template3.Detach(); // stands without an object, as one that a template made
    EXPECT_TRUE(dialog.UpdateData(FALSE));
    EXPECT_TRUE(dialog.UpdateData(TRUE)); // tied once
    EXPECT_EQ(dialog.m_Control.m_hWnd, handle);
    EXPECT_EQ(dialog.GetDlgItem(3), &dialog.m_Control);
    test::PressMouse(dialog.m_Control, {1, 1});
    EXPECT_EQ(Heard(), Sequence{"control down 1,1 L"});
    k_Dialog other;
    ASSERT_TRUE(other.CreatePopup(nullptr));
    EXPECT_THROW(other.UpdateData(FALSE), CInvalidArgException*);
}

TEST_F(Windows, HearOfTheWheelAndOfOtherSettings)
{
    k_Witness window("window");
    Open(window);
    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    test::TurnWheel(window, -120);
    test::ChangeSettings([&] {
        EXPECT_EQ(test::PixelOf(window, {15, 15}), RGB(255, 0, 255));
        EXPECT_EQ(Heard(), (Sequence{"window wheel -120", "window settings, face 16711935"}));
    });
    EXPECT_EQ(Heard().back(), "window settings, face " + std::to_string(face));
}

TEST_F(Windows, ArePaintedOnTheirBackgroundAndAtAnyTime)
{
    k_Witness window("window");
    window.m_fill = RGB(255, 0, 0);
    Open(window);
    EXPECT_EQ(test::PixelOf(window, {5, 5}), RGB(255, 0, 0));
    EXPECT_EQ(test::PixelOf(window, {15, 15}), GetSysColor(COLOR_BTNFACE));
    {
        CClientDC dc(&window);
        dc.FillSolidRect(12, 12, 10, 10, RGB(0, 0, 255));
    }
    test::Settle();
    EXPECT_EQ(test::PixelOf(window, {15, 15}), RGB(0, 0, 255)); // stays, as nothing was invalid
    window.m_fill = RGB(0, 255, 0);
    const RECT part{0, 0, 5, 5};
    window.RedrawWindow(&part);
    EXPECT_EQ(test::PixelOf(window, {2, 2}), RGB(0, 255, 0));
    EXPECT_EQ(test::PixelOf(window, {7, 7}), RGB(255, 0, 0)); // outside of what was invalid
    window.InvalidateRect(nullptr);
    test::Settle();
    EXPECT_EQ(test::PixelOf(window, {15, 15}), GetSysColor(COLOR_BTNFACE));
}

TEST_F(Windows, AreNotPaintedWhileLocked)
{
    k_Witness window("window");
    k_Witness other("other");
    ASSERT_TRUE(window.CreatePopup(nullptr) && other.CreatePopup(nullptr));
    test::Settle();
    EXPECT_TRUE(LockWindowUpdate(window.m_hWnd));
    EXPECT_FALSE(LockWindowUpdate(other.m_hWnd));
    window.m_paints = 0;
    window.RedrawWindow();
    test::Settle();
    EXPECT_EQ(window.m_paints, 0);
    LockWindowUpdate(nullptr);
    test::Settle();
    EXPECT_EQ(window.m_paints, 1);
    LockWindowUpdate(window.m_hWnd);
    window.DestroyWindow();
    EXPECT_TRUE(LockWindowUpdate(other.m_hWnd));
    LockWindowUpdate(nullptr);
}

TEST_F(Windows, AskForAContextMenuUpToTheirDialog)
{
    k_Witness parent("parent");
    k_Witness child("child");
    ASSERT_TRUE(parent.CreatePopup(nullptr));
    ASSERT_TRUE(child.CreateChild(parent, 3));
    child.m_passedOn = parent.m_passedOn = WM_CONTEXTMENU;
    test::Settle();
    Heard();
    QWidget& widget = WindowSide::Of(child.m_hWnd)->Widget();
    for (const auto reason : {QContextMenuEvent::Mouse, QContextMenuEvent::Keyboard}) {
        QContextMenuEvent event(reason, {1, 2}, {51, 37});
        QCoreApplication::sendEvent(&widget, &event);
    }
    EXPECT_EQ(Heard(), (Sequence{"child menu 51,37 of 3", "parent menu 51,37 of 3", "child menu -1,-1 of 3",
                                 "parent menu -1,-1 of 3"}));
}

TEST_F(Windows, AreAskedForTheTextOfTheirToolTip)
{
    k_Witness window("window");
    ASSERT_TRUE(window.CreatePopup(nullptr));
    test::Settle();
    Heard();
    const auto rest = [&window] {
        QHelpEvent event(QEvent::ToolTip, {3, 4}, {43, 34});
        QCoreApplication::sendEvent(&WindowSide::Of(window.m_hWnd)->Widget(), &event);
        return QToolTip::text();
    };
    EXPECT_EQ(rest(), "");
    EXPECT_EQ(Heard(), Sequence{}); // not before it is enabled
    window.EnableToolTips(TRUE);
    EXPECT_EQ(rest(), "");
    EXPECT_EQ(Heard(), Sequence{"window text for 0 at 43,34"});
    window.m_tipLength = 1;
    EXPECT_EQ(rest(), "a");
    window.m_tipLength = 5;
    EXPECT_NE(rest().indexOf("&lt;b"), -1); // no markup
}

// A scroll area below a margin, which Qt paints green; nothing of it is drawn by message.
class Area : public ScrollAreaWindow<QAbstractScrollArea>
{
public:
    explicit Area(QWidget& parent) : ScrollAreaWindow(&parent)
    {
        setFrameShape(NoFrame);
        setViewportMargins(0, 8, 0, 0);
        setGeometry(10, 5, 40, 40);
        show();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        heard.emplace_back("painted by Qt");
        QPainter(viewport()).fillRect(viewport()->rect(), Qt::green);
    }
    void PaintInto(HDC context) override
    {
        heard.emplace_back("painted into");
        CDC::FromHandle(context)->FillSolidRect(0, 0, 40, 40, RGB(1, 2, 3));
    }
};

class k_Area : public k_Witness
{
public:
    k_Area() : k_Witness("area") {}
    enum { None, ByQt, Into, Part } m_painter = ByQt;

protected:
    afx_msg void OnPaint()
    {
        if (m_painter == ByQt) {
            Default();
            Default();      // once is enough
            RedrawWindow(); // later
        } else if (m_painter != None) {
            CPaintDC dc(this);
            if (m_painter == Into)
                DefWindowProc(WM_PAINT, reinterpret_cast<WPARAM>(dc.GetSafeHdc()), 0);
            dc.FillSolidRect(0, 0, 4, 4, RGB(255, 0, 0));
        }
    }
    afx_msg BOOL OnEraseBkgnd(CDC*) { return TRUE; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(k_Area, k_Witness)
ON_WM_PAINT()
ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

TEST_F(Windows, CanBeScrollAreasThatQtPaints)
{
    k_Witness parent("parent");
    k_Area area;
    ASSERT_TRUE(parent.CreatePopup(nullptr));
    auto* const widget = new Area(WindowSide::Of(parent.m_hWnd)->Widget());
    ASSERT_TRUE(area.SubclassWindow(widget->Handle()));
    test::Settle();
    CRect client;
    CRect whole;
    area.GetClientRect(&client);
    area.GetWindowRect(&whole);
    EXPECT_EQ(client, CRect(0, 0, 40, 32));
    EXPECT_EQ(whole, CRect(50, 35, 90, 75));
    area.ScreenToClient(&whole);
    EXPECT_EQ(whole.TopLeft(), CPoint(0, -8));

    Heard();
    const RECT corner{0, 0, 6, 6};
    area.RedrawWindow(&corner);
    EXPECT_EQ(Heard(), Sequence{"painted by Qt"});
    test::PressMouse(area, {1, 2});
    area.MoveWindow(0, 0, 50, 40);
    EXPECT_EQ(Heard(), (Sequence{"area down 1,2 L", "area size 50x32"}));
    EXPECT_EQ(test::PixelOf(area, {2, 2}), RGB(0, 255, 0));
    area.m_painter = k_Area::Into;
    EXPECT_EQ(test::PixelOf(area, {2, 2}), RGB(255, 0, 0));
    EXPECT_EQ(test::PixelOf(area, {8, 8}), RGB(1, 2, 3));
    area.m_painter = k_Area::Part;
    EXPECT_EQ(test::PixelOf(area, {8, 8}), RGB(1, 2, 3)); // nothing has erased it
    area.m_painter = k_Area::None;
    Heard();
    parent.RedrawWindow();
    EXPECT_EQ(Heard(), Sequence{});
    area.Detach();
    EXPECT_EQ(test::PixelOf(parent, {30, 30}), RGB(0, 255, 0)); // by Qt alone
    EXPECT_EQ(Heard(), Sequence{"painted by Qt"});
}

} // namespace
