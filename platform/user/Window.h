// A window as the class framework sees it: a handle that takes messages, on top of a widget of Qt's.
#pragma once

#include "EventTranslator.h"
#include "WindowFont.h"
#include "WindowKind.h"
#include "WindowSurface.h"

#include <QWidget>
#include <functional>

class CWnd;

// The class of a widget derives from its Qt class and from this one, through WidgetWindow. The handle is
// valid until WM_NCDESTROY has been sent, which happens before the widget is deleted.
class Window : public WindowKind
{
public:
    explicit Window(QWidget& widget);

    // Creates the window of a framework object with a factory, which gives null on failure, and sends
    // WM_CREATE. Fails, with nothing attached, if the object has a window already, without a display or a
    // valid parent, and if WM_CREATE gave -1 or threw; PostNcDestroy may have deleted the object then.
    using Factory = std::function<Window*(QWidget* parent)>;
    static bool Create(CWnd& object, struct CREATESTRUCT creation, UINT id, const Factory& factory);

    // Null for a handle whose window is gone, and for a widget that isn't a window of the layer.
    static Window* Of(HWND handle);
    static Window* Of(const QWidget* widget);
    HWND Handle() { return reinterpret_cast<HWND>(this); }
    QWidget& Widget() { return m_widget; }

    // The widget of the client area: client coordinates, input and painting refer to it.
    virtual QWidget& Client() { return m_widget; }

    // The window that contains or owns this one; null if there is none.
    Window* Parent();

    // Whether it is an owned popup, which has all input of the program while it is open.
    bool IsPopup() const { return m_widget.windowType() == Qt::Popup; }

    // Passes a message to the attached object; without one, to Default. SendContained is for callers that Qt
    // has called: it ends exceptions of handlers, with failure as the result.
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    LRESULT SendContained(UINT message, WPARAM wParam = 0, LPARAM lParam = 0, LRESULT failure = 0) noexcept;

    // The window's own handling: Qt's, if the message is the translation of the current event and Qt hasn't
    // handled that yet; otherwise OnDefault.
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam);

    // The message that this thread is handling.
    static const MSG& CurrentMessage();

    // Sends the last messages, and deletes the widget when control returns to the event loop.
    void Destroy();
    bool IsGone() const; // the last messages have been sent

    // Notifies the parent: WM_COMMAND with the id and a code, or WM_NOTIFY with a code, whose header is
    // filled in here, and which gives the parent's result.
    void Notify(UINT code);
    LRESULT Notify(NMHDR& header, int code);

    // Moves the window within its parent, or a popup on the screen of its owner, and sends WM_SIZE at once,
    // even while it is hidden.
    void Place(const QRect& rectangle);
    void SendPendingSize();

    WindowSurface& Surface() { return m_surface; }

    HFONT Font() const { return m_font.Handle(); } // null if none was set

    // What the tooltip at a point of the client area is about: it ends when the mouse leaves that.
    virtual QRect ToolTipPlaceAt(QPoint /*point*/) { return Client().rect(); }

    virtual QString Text() const;
    virtual void SetText(const QString& text);

    CWnd* Attached = nullptr;
    DWORD Style = 0;
    int Id = 0;
    int Background = 0; // index of a system colour plus 1; 0 for none
    bool HasToolTips = false;

protected:
    // For the destructor of the widget's class: a widget that Qt deletes sends its last messages too.
    void SendLastMessages();

    EventTranslator& Events() { return m_events; }

    // Handles a message as this kind of window does, if Qt doesn't; WM_PAINT with a context is for PaintInto.
    virtual LRESULT OnDefault(UINT message, WPARAM wParam, LPARAM lParam);
    virtual void PaintInto(HDC /*context*/) {}

private:
    void Forget(); // from now on the handle is invalid

    QWidget& m_widget;
    EventTranslator m_events{*this};
    WindowSurface m_surface{*this};
    WindowFont m_font;
};
