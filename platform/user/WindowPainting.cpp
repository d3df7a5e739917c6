// How a window comes to its picture: by its messages, on pixels that are then shown, or by Qt.
#include "WindowSide.h"

#include <DeviceContext.h>
#include <QPaintEvent>
#include <QPainter>
#include <QtConvert.h>
#include <afxwin.h>

namespace
{

int paintingsUnderWay = 0; // of all windows: Qt paints no window within the painting of another

class Painting
{
public:
    Painting() { ++paintingsUnderWay; }
    Painting(const Painting&) = delete;
    Painting& operator=(const Painting&) = delete;
    ~Painting() { --paintingsUnderWay; }
};

} // namespace

void WindowSide::Invalidate(const QRect& rectangle, bool erase)
{
    m_invalid += rectangle.intersected(Client().rect());
    m_erase = m_erase || erase;
    Client().update(rectangle);
    // Qt takes a window in it that paints all of itself to be as it was.
    const auto originOf = [this](const QWidget& client) { return client.mapTo(&m_widget, QPoint(0, 0)); };
    for (QObject* const child : m_widget.children()) {
        WindowSide* const inside = Of(qobject_cast<QWidget*>(child));
        if (inside != nullptr && !inside->m_widget.isWindow())
            inside->Invalidate(rectangle.translated(originOf(Client()) - originOf(inside->Client())), erase);
    }
}

void WindowSide::UpdateNow()
{
    if (paintingsUnderWay == 0 && !m_invalid.isEmpty())
        Client().repaint(QRegion(m_invalid));
}

void WindowSide::EnsurePixels()
{
    const QSize size = Client().size();
    if (m_pixels.size() == size)
        return;
    m_pixels = QImage(size, QImage::Format_RGB32);
    m_pixels.fill(Client().palette().color(QPalette::Window));
    m_invalid = Client().rect();
    m_erase = true;
}

HDC WindowSide::ContextOn(const QRect& clip)
{
    EnsurePixels();
    if (m_pixels.isNull())
        return nullptr;
    return gdi::CreateSurfaceDC(gdi::ToSurface(m_pixels),
                                {clip.left(), clip.top(), clip.right() + 1, clip.bottom() + 1});
}

HDC WindowSide::BeginPaint()
{
    EnsurePixels();
    const HDC context = ContextOn(m_invalid.boundingRect());
    m_invalid = {};
    m_showsPixels = true;
    if (context != nullptr && std::exchange(m_erase, false))
        SendContained(WM_ERASEBKGND, reinterpret_cast<WPARAM>(context));
    return context;
}

void WindowSide::EndPaint(HDC context)
{
    DeleteDC(context);
}

HDC WindowSide::GetContext()
{
    return ContextOn(Client().rect());
}

void WindowSide::ReleaseContext(HDC context)
{
    DeleteDC(context);
    if (IsDrawnByMessage())
        Client().update();
}

// A window that is drawn by message has its pixels, and what somebody drew at another time stands in them:
// only what is invalid is asked for.
bool WindowSide::Paint(QPaintEvent& event, const QtHandling& qtHandling)
{
    const Painting underWay;
    m_showsPixels = IsDrawnByMessage();
    if (m_showsPixels) {
        EnsurePixels();
        if (!m_invalid.isEmpty())
            SendContained(WM_PAINT);
    } else {
        PaintByHandlers(event, qtHandling);
        m_invalid = {};
    }
    if (!m_showsPixels || m_pixels.isNull())
        return true;
    QPainter painter(&Client());
    for (const QRect& rectangle : event.region())
        painter.drawImage(rectangle, m_pixels, rectangle);
    return true;
}

// What Qt finds exposed by itself is invalid too, and to be erased.
void WindowSide::PaintByHandlers(QPaintEvent& event, const QtHandling& qtHandling)
{
    if (Attached == nullptr) {
        qtHandling(event);
        return;
    }
    if (!event.region().subtracted(m_invalid).isEmpty()) {
        m_invalid += event.region();
        m_erase = true;
    }
    SendFor(WM_PAINT, 0, 0, event, qtHandling);
}
