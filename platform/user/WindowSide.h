// The window side of a widget: what happens to the widget becomes messages, and what messages ask for is done
// to it.
#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QRegion>
#include <QWidget>
#include <functional>
#include <winscroll.h>

class CWnd;
class QContextMenuEvent;
class QHelpEvent;
class QPaintEvent;

// A widget's class derives from its Qt class and from this, by way of WidgetWindow. The handle of the window
// is good until WM_NCDESTROY has been sent, which is before the widget is deleted.
class WindowSide
{
public:
    // How a widget handles an event by itself.
    using QtHandling = std::function<bool(QEvent&)>;

    explicit WindowSide(QWidget& widget);
    WindowSide(const WindowSide&) = delete;
    WindowSide& operator=(const WindowSide&) = delete;
    virtual ~WindowSide();

    // Makes the window of the framework's object by a factory, which gives null where it can't, and sends
    // WM_CREATE. False, and nothing attached, for an object that has a window, for a child outside of one,
    // for an owner that isn't one, without a display, and when WM_CREATE gave -1 or threw. An object that had
    // none has been sent its last call then, PostNcDestroy, and may be gone.
    using Factory = std::function<WindowSide*(QWidget* parent)>;
    static bool Create(CWnd& object, struct CREATESTRUCT creation, UINT id, const Factory& factory);

    // Null for a handle whose window is gone, and for a widget that isn't a window of the layer's.
    static WindowSide* Of(HWND handle);
    static WindowSide* Of(const QWidget* widget);
    HWND Handle() { return reinterpret_cast<HWND>(this); }
    QWidget& Widget() { return m_widget; }

    // What stands for the client area: coordinates, input and painting are those of this widget.
    virtual QWidget& Client() { return m_widget; }

    // The window that this one is in, or that owns it; null if there is none.
    WindowSide* Parent();

    // Hands a message to the attached object, and without one to the window's own handling.
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

    // The same for a caller that has Qt above it. What a handler throws ends with the message, whose result
    // is the failure then.
    LRESULT SendContained(UINT message, WPARAM wParam = 0, LPARAM lParam = 0, LRESULT failure = 0) noexcept;

    // The window's own handling: the Qt event that the message stands for, which is handled once at most;
    // else what the kind of window makes of the message.
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam);

    // Sends the last messages, and deletes the widget when the present event is over.
    void Destroy();

    // To the parent, on behalf of Qt: WM_COMMAND with the id and a notification code; WM_NOTIFY with a code,
    // of which this fills in the head, and which gives the answer.
    void Notify(UINT code);
    LRESULT Notify(NMHDR& header, int code);

    // In client coordinates. The windows in it are invalid too.
    void Invalidate(const QRect& rectangle, bool erase);

    // Paints what is invalid before it returns; nothing while the window isn't shown, or while any window is
    // being painted: then that comes later.
    void UpdateNow();

    // Moves the window within its parent, and has it hear of its size at once, shown or not.
    void Place(const QRect& rectangle);
    void SendPendingSize();

    // A context on the window's pixels for what is invalid, erased before if it has to be; and one for all of
    // it at any time. Null when there is no memory. The second function of a pair shows what was drawn; what
    // was drawn at another time than WM_PAINT, of a window that is drawn by message alone.
    HDC BeginPaint();
    void EndPaint(HDC context);
    HDC GetContext();
    void ReleaseContext(HDC context);

    // All that SCROLLINFO can tell of a bar; false for one that the window hasn't got.
    virtual bool ScrollInfo(int /*bar*/, SCROLLINFO& /*info*/) const { return false; }
    // What fMask names, of a window that is a scroll bar. Gives the position afterwards.
    virtual int SetScrollInfo(const SCROLLINFO& /*info*/) { return 0; }

    virtual QString Text() const;
    virtual void SetText(const QString& text);
    virtual void OnStyleChanged() {}

    CWnd* Attached = nullptr;
    DWORD Style = 0;
    int Id = 0;
    int Background = 0;   // a system colour's index and 1; 0 for none
    HFONT Font = nullptr; // as WM_SETFONT gave it
    bool HasToolTips = false;

protected:
    // Turns an event into its message; whatever the message's handlers leave, Qt handles. The second is for
    // the events of a client widget that isn't the window's own.
    bool Translate(QEvent& event, const QtHandling& qtHandling);
    bool TranslateClient(QEvent& event, const QtHandling& qtHandling);

    // Called by the destructor of the widget's class: a widget that Qt deletes sends its last messages too.
    void SendLastMessages();

    // What this kind of window makes of a message that stands for no event.
    virtual LRESULT OnDefault(UINT message, WPARAM wParam, LPARAM lParam);

    // Whether WM_PAINT draws the window, on pixels that stay, and Qt never does.
    virtual bool IsDrawnByMessage() const { return false; }

    // Paints the client area into somebody's context, for a WM_PAINT that brings one: done by the kinds of
    // windows that are asked for it.
    virtual void PaintInto(HDC /*context*/) {}

private:
    struct Pending;

    bool TranslateAny(QEvent& event, const QtHandling& qtHandling);
    bool SendInput(UINT message, WPARAM wParam, LPARAM lParam, QEvent& event, const QtHandling& qtHandling);
    bool SendFor(UINT message, WPARAM wParam, LPARAM lParam, QEvent& event, const QtHandling& qtHandling);
    bool PreTranslate(UINT message, WPARAM wParam, LPARAM lParam);
    void SendContextMenu(const QContextMenuEvent& event);
    void ShowToolTip(const QHelpEvent& event);
    bool Paint(QPaintEvent& event, const QtHandling& qtHandling);
    void PaintByHandlers(QPaintEvent& event, const QtHandling& qtHandling);
    void EnsurePixels();
    HDC ContextOn(const QRect& clip);

    QWidget& m_widget;
    Pending* m_pending = nullptr; // the event that is being translated
    QImage m_pixels;              // of a client area that somebody has drawn on
    QRegion m_invalid;
    bool m_erase = true;
    bool m_showsPixels = false; // at the present painting
    bool m_isGone = false;
};

// A widget of Qt's class Base that is a window.
template <class Base> class WidgetWindow : public Base, public WindowSide
{
public:
    template <class... Arguments>
    explicit WidgetWindow(Arguments&&... arguments)
        : Base(std::forward<Arguments>(arguments)...), WindowSide(static_cast<QWidget&>(*this))
    {
    }
    ~WidgetWindow() override { SendLastMessages(); }

protected:
    bool event(QEvent* event) override
    {
        return Translate(*event, [this](QEvent& same) { return Base::event(&same); });
    }
};

// A scroll area of Qt's class Base that is a window: its client area is the viewport.
template <class Base> class ScrollAreaWindow : public WidgetWindow<Base>
{
public:
    using WidgetWindow<Base>::WidgetWindow;

    QWidget& Client() override { return *this->viewport(); }

protected:
    bool viewportEvent(QEvent* event) override
    {
        return this->TranslateClient(*event, [this](QEvent& same) { return Base::viewportEvent(&same); });
    }
};
