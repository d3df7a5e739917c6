// Translates the events of a widget into messages of its window.
#pragma once

#include <functional>
#include <winmsg.h>

class QEvent;
class QHelpEvent;
class Window;

class EventTranslator
{
public:
    // How the widget's Qt class handles an event.
    using QtHandling = std::function<bool(QEvent&)>;

    explicit EventTranslator(Window& window) : m_window(window) {}

    // Sends the message that the event stands for. Qt handles the event when the message reaches
    // Window::Default, and every event that stands for no message. Gives what the widget's event() returns.
    bool Translate(QEvent& event, const QtHandling& qtHandling);

    // The same for events of the client widget, where that isn't the window's own.
    bool TranslateClient(QEvent& event, const QtHandling& qtHandling);

    // Lets Qt handle the event that is being translated. False, without effect, if the message isn't its
    // translation or Qt has handled it already.
    bool PassToQt(UINT message, WPARAM wParam);

private:
    struct Pending;

    bool TranslateAny(QEvent& event, const QtHandling& qtHandling);
    bool SendInput(UINT message, WPARAM wParam, LPARAM lParam, QEvent& event, const QtHandling& qtHandling);
    bool SendFor(UINT message, WPARAM wParam, LPARAM lParam, QEvent& event, const QtHandling& qtHandling);
    bool PreTranslate(UINT message, WPARAM wParam, LPARAM lParam);
    void ShowToolTip(const QHelpEvent& event);

    Window& m_window;
    Pending* m_pending = nullptr; // the event that is being translated
};
