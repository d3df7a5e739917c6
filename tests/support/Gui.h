// Acts for the user on the offscreen platform: mouse, keyboard, pixels.
#pragma once

#include <QApplication>
#include <QImage>
#include <QTest>
#include <QTimer>
#include <Window.h>
#include <afxwin.h>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace test
{

// Handles all pending events.
void Settle();

// Records an event, and gives the events since the last call, separated by commas.
void Note(const std::string& event);
std::string Heard();

QWidget& WidgetOf(const CWnd& window);
QWidget& ClientOf(const CWnd& window); // its client area

// Points are in the window's client coordinates; a button is the left one.
void MoveMouse(CWnd& window, CPoint point);
void PressMouse(CWnd& window, CPoint point);
void DragMouse(CWnd& window, CPoint point); // moves it with the button held
void ReleaseMouse(CWnd& window, CPoint point);
void Click(CWnd& window, CPoint point);
void ClickTwice(CWnd& window, CPoint point);
void ClickRight(CWnd& window, CPoint point);
void PressKey(CWnd& window, UINT virtualKey, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void TurnWheel(CWnd& window, int delta, int sideways = 0); // 120 is one notch upward, or to the left

// Gives the desktop other colours during its lifetime.
class DesktopColors
{
public:
    explicit DesktopColors(const std::vector<std::pair<QPalette::ColorRole, COLORREF>>& colors);
    DesktopColors(const DesktopColors&) = delete;
    DesktopColors& operator=(const DesktopColors&) = delete;
    ~DesktopColors() { QApplication::setPalette(m_before); }

private:
    QPalette m_before = QApplication::palette();
};

// Makes all windows and buttons of the desktop magenta, calls meanwhile, and restores them.
void ChangeSettings(const std::function<void()>& meanwhile = [] {});

// Answers the next modal dialog of this class, once the program is idle.
template <class Dialog> void AnswerNext(std::function<void(Dialog&)> answer)
{
    QTimer::singleShot(0, [answer = std::move(answer)] {
        answer(dynamic_cast<Dialog&>(*QApplication::activeModalWidget()));
    });
}

// The client area as it stands on the screen, all pending events handled.
QImage PictureOf(const CWnd& window);
COLORREF PixelOf(const CWnd& window, CPoint point);

// A row of it by the colours of the system: face, shadow, highlight, light, dark, and c for others.
std::string RowOf(const CWnd& window, int y, int left, int right);

CRect PlaceOf(const CWnd& window); // on the screen

} // namespace test
