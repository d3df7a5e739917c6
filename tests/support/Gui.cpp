#include "Gui.h"

#include <Application.h>
#include <QContextMenuEvent>
#include <QScreen>
#include <QWheelEvent>
#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <memory>

namespace
{

// Keeps an application object during all tests.
class Desktop : public testing::Environment
{
    void SetUp() override
    {
        m_application = std::make_unique<ApplicationHolder>();
        if (qEnvironmentVariableIsSet("TEST_RIGHT_TO_LEFT"))
            QApplication::setLayoutDirection(Qt::RightToLeft);
    }
    void TearDown() override { m_application.reset(); }

    std::unique_ptr<ApplicationHolder> m_application;
};
[[maybe_unused]] testing::Environment* const desktop = testing::AddGlobalTestEnvironment(new Desktop);

// Distinct colours that are the same on every desktop.
[[maybe_unused]] const bool hasFixedColors = [] {
    QPalette palette(Qt::black, QColor(192, 192, 192), Qt::white, QColor(128, 128, 128),
                     QColor(160, 160, 160), Qt::black, Qt::white);
    palette.setColor(QPalette::Midlight, QColor(223, 223, 223));
    palette.setColor(QPalette::Shadow, Qt::black);
    QApplication::setPalette(palette);
    return true;
}();

std::string heard;

void SendMouse(const CWnd& window, CPoint point, QEvent::Type type, Qt::MouseButton button,
               Qt::MouseButtons buttons)
{
    QWidget& widget = test::ClientOf(window);
    const QPointF local(point.x, point.y);
    QMouseEvent event(type, local, widget.mapToGlobal(local), button, buttons, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

COLORREF ColorOf(QRgb pixel)
{
    return RGB(BYTE(qRed(pixel)), BYTE(qGreen(pixel)), BYTE(qBlue(pixel)));
}

int QtKeyOf(UINT virtualKey)
{
    static const std::map<UINT, int> others = {{VK_LEFT, Qt::Key_Left},
                                               {VK_UP, Qt::Key_Up},
                                               {VK_RIGHT, Qt::Key_Right},
                                               {VK_DOWN, Qt::Key_Down},
                                               {VK_ESCAPE, Qt::Key_Escape},
                                               {VK_RETURN, Qt::Key_Return},
                                               {VK_ADD, Qt::Key_Plus},
                                               {VK_SUBTRACT, Qt::Key_Minus},
                                               {VK_MULTIPLY, Qt::Key_Asterisk},
                                               {8, Qt::Key_Backspace},
                                               {VK_TAB, Qt::Key_Tab},
                                               {35, Qt::Key_End},
                                               {113, Qt::Key_F2},
                                               {117, Qt::Key_F6},
                                               {121, Qt::Key_F10}};
    const auto found = others.find(virtualKey);
    return found != others.end() ? found->second : static_cast<int>(virtualKey);
}

} // namespace

namespace test
{

void Settle()
{
    for (int i = 0; i < 5; ++i) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
}

void Note(const std::string& event)
{
    heard += (heard.empty() ? "" : ", ") + event;
}

std::string Heard()
{
    return std::exchange(heard, {});
}

QWidget& WidgetOf(const CWnd& window)
{
    return Window::Of(window.m_hWnd)->Widget();
}

QWidget& ClientOf(const CWnd& window)
{
    return Window::Of(window.m_hWnd)->Client();
}

void MoveMouse(CWnd& window, CPoint point)
{
    SendMouse(window, point, QEvent::MouseMove, Qt::NoButton, Qt::NoButton);
}

void PressMouse(CWnd& window, CPoint point)
{
    SendMouse(window, point, QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
}

void DragMouse(CWnd& window, CPoint point)
{
    SendMouse(window, point, QEvent::MouseMove, Qt::NoButton, Qt::LeftButton);
}

void ReleaseMouse(CWnd& window, CPoint point)
{
    SendMouse(window, point, QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton);
}

void Click(CWnd& window, CPoint point)
{
    PressMouse(window, point);
    ReleaseMouse(window, point);
}

void ClickTwice(CWnd& window, CPoint point)
{
    Click(window, point);
    SendMouse(window, point, QEvent::MouseButtonDblClick, Qt::LeftButton, Qt::LeftButton);
    ReleaseMouse(window, point);
}

void ClickRight(CWnd& window, CPoint point)
{
    SendMouse(window, point, QEvent::MouseButtonPress, Qt::RightButton, Qt::RightButton);
    const QPoint local(point.x, point.y);
    QContextMenuEvent menu(QContextMenuEvent::Mouse, local, ClientOf(window).mapToGlobal(local));
    QApplication::sendEvent(&ClientOf(window), &menu);
    SendMouse(window, point, QEvent::MouseButtonRelease, Qt::RightButton, Qt::NoButton);
}

void PressKey(CWnd& window, UINT virtualKey, Qt::KeyboardModifiers modifiers)
{
    const bool isOnNumberPad = virtualKey >= VK_MULTIPLY && virtualKey <= VK_SUBTRACT;
    modifiers.setFlag(Qt::KeypadModifier, isOnNumberPad);
    QKeyEvent event(QEvent::KeyPress, QtKeyOf(virtualKey), modifiers);
    QApplication::sendEvent(&WidgetOf(window), &event);
}

void TurnWheel(CWnd& window, int delta, int sideways)
{
    QWidget& widget = ClientOf(window);
    const QPointF local(1, 1);
    QWheelEvent event(local, widget.mapToGlobal(local), {}, {sideways, delta}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

DesktopColors::DesktopColors(const std::vector<std::pair<QPalette::ColorRole, COLORREF>>& colors)
{
    QPalette palette = m_before;
    for (const auto& [role, color] : colors)
        palette.setColor(role, QColor(GetRValue(color), GetGValue(color), GetBValue(color)));
    QApplication::setPalette(palette);
}

void ChangeSettings(const std::function<void()>& meanwhile)
{
    {
        constexpr COLORREF magenta = RGB(255, 0, 255);
        const DesktopColors other({{QPalette::Window, magenta}, {QPalette::Button, magenta}});
        Settle();
        meanwhile();
    }
    Settle();
}

QImage PictureOf(const CWnd& window)
{
    Settle();
    const QWidget& client = ClientOf(window);
    const QPoint corner = client.mapTo(client.window(), QPoint());
    return client.screen()->grabWindow(client.window()->winId()).toImage().copy(QRect(corner, client.size()));
}

COLORREF PixelOf(const CWnd& window, CPoint point)
{
    return ColorOf(PictureOf(window).pixel(point.x, point.y));
}

std::string RowOf(const CWnd& window, int y, int left, int right)
{
    const std::pair<int, char> kinds[] = {{COLOR_BTNFACE, 'f'},
                                          {COLOR_BTNSHADOW, 's'},
                                          {COLOR_BTNHIGHLIGHT, 'h'},
                                          {COLOR_3DLIGHT, 'l'},
                                          {COLOR_3DDKSHADOW, 'd'}};
    const QImage picture = PictureOf(window);
    std::string row;
    for (int x = left; x < right; ++x) {
        char kind = 'c';
        for (const auto& [color, character] : kinds)
            kind = ColorOf(picture.pixel(x, y)) == GetSysColor(color) ? character : kind;
        row += kind;
    }
    return row;
}

CRect PlaceOf(const CWnd& window)
{
    CRect place;
    window.GetWindowRect(&place);
    return place;
}

} // namespace test
