// What a window is painted on: its pixels, and which of them are out of date.
#pragma once

#include <QRegion>
#include <functional>
#include <memory>
#include <windef.h>

class QPaintEvent;
class ScreenPixels;
class Window;

class WindowSurface
{
public:
    explicit WindowSurface(Window& window);
    WindowSurface(const WindowSurface&) = delete;
    WindowSurface& operator=(const WindowSurface&) = delete;
    ~WindowSurface();

    // In client coordinates. Invalidates the windows inside too.
    void Invalidate(const QRect& rectangle, bool erase);

    // Paints the invalid part before it returns. Does nothing while the window is hidden or any window is
    // being painted; the part is painted later then.
    void UpdateNow();

    // A context on the invalid part, erased if necessary; the part is valid afterwards. Null without memory.
    HDC BeginPaint();

    // A context on the whole client area at any time; null without memory.
    HDC GetContext();

    // Shows what was drawn on such a context, if WM_PAINT alone draws the window.
    void ShowDrawing();

    // Handles a paint event of the client widget. paint sends WM_PAINT, or lets Qt paint; it isn't called if
    // WM_PAINT alone draws the window. Pixels that were drawn through BeginPaint are shown.
    void Paint(const QPaintEvent& event, const std::function<void()>& paint);

    // The part of the client area that is being painted: what a paint event asks for, and otherwise all.
    QRect PaintedPart() const;

    // Whether WM_PAINT alone draws the window, on pixels that persist.
    bool IsDrawnByMessage = false;

private:
    // Both are false without memory.
    bool EnsurePixels();       // of the whole client area, and keeps those there are
    bool EnsurePixelsOfPart(); // of the painted part of an opaque client area, which is drawn as a whole

    Window& m_window;
    std::unique_ptr<ScreenPixels> m_pixels; // of the client area or a part, once there was a context on it
    QRegion m_invalid;
    QRect m_asked; // by the current paint event; empty outside of one
    bool m_erase = true;
    bool m_showsPixels = false; // in the current paint event
};
