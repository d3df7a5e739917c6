#include "ScreenPixels.h"
#include "Window.h"

#include <DeviceContext.h>
#include <QPaintEvent>
#include <QPainter>
#include <QtConvert.h>
#include <cmath>
#include <utility>
#include <winmsg.h>

namespace
{

int activePaintings = 0; // of all windows: Qt doesn't paint a window while it paints another

class ActivePainting
{
public:
    ActivePainting() { ++activePaintings; }
    ActivePainting(const ActivePainting&) = delete;
    ActivePainting& operator=(const ActivePainting&) = delete;
    ~ActivePainting() { --activePaintings; }
};

} // namespace

WindowSurface::WindowSurface(Window& window) : m_window(window) {}

WindowSurface::~WindowSurface() = default;

void WindowSurface::Invalidate(const QRect& rectangle, bool erase)
{
    QWidget& client = m_window.Client();
    if (!client.updatesEnabled() && !IsDrawnByMessage)
        return; // Qt paints all of it, with what is inside, when they are enabled
    m_invalid += rectangle.intersected(client.rect());
    m_erase = m_erase || erase;
    // At a broken scale, Qt may leave out a pixel at the edges of what it updates.
    const int margin = client.devicePixelRatio() == std::floor(client.devicePixelRatio()) ? 0 : 1;
    client.update(rectangle.adjusted(-margin, -margin, margin, margin));
    // Qt doesn't repaint an opaque child with its parent.
    QWidget& widget = m_window.Widget();
    const auto originOf = [&widget](const QWidget& area) { return area.mapTo(&widget, QPoint(0, 0)); };
    for (QObject* const child : widget.children()) {
        Window* const inside = Window::Of(qobject_cast<QWidget*>(child));
        if (inside != nullptr && !inside->Widget().isWindow())
            inside->Surface().Invalidate(rectangle.translated(originOf(client) - originOf(inside->Client())),
                                         erase);
    }
}

void WindowSurface::UpdateNow()
{
    if (activePaintings == 0 && !m_invalid.isEmpty())
        m_window.Client().repaint(QRegion(m_invalid));
}

bool WindowSurface::EnsurePixels()
{
    const QWidget& client = m_window.Client();
    if (m_pixels == nullptr || !m_pixels->Fits(client, client.rect())) {
        m_pixels = std::make_unique<ScreenPixels>(client, client.rect());
        m_pixels->Fill(gdi::ToColorRef(client.palette().color(QPalette::Window)));
        m_invalid = client.rect();
        m_erase = true;
    }
    return !m_pixels->IsNull();
}

bool WindowSurface::EnsurePixelsOfPart()
{
    const QWidget& client = m_window.Client();
    if (m_pixels == nullptr || !m_pixels->MoveTo(client, m_asked)) {
        m_pixels = std::make_unique<ScreenPixels>(client, m_asked);
        m_pixels->Fill(gdi::ToColorRef(client.palette().color(QPalette::Window)));
    }
    return !m_pixels->IsNull();
}

QRect WindowSurface::PaintedPart() const
{
    return m_asked.isEmpty() ? m_window.Client().rect() : m_asked;
}

HDC WindowSurface::BeginPaint()
{
    const bool isPart = !m_asked.isEmpty() && m_window.Client().testAttribute(Qt::WA_OpaquePaintEvent);
    const bool hasPixels = isPart ? EnsurePixelsOfPart() : EnsurePixels();
    const QRect clip = isPart ? m_asked : m_invalid.boundingRect();
    const HDC context = hasPixels ? m_pixels->CreateContext(gdi::ToRect(clip)) : nullptr;
    m_invalid = {};
    m_showsPixels = true;
    if (context != nullptr && std::exchange(m_erase, false))
        m_window.SendContained(WM_ERASEBKGND, reinterpret_cast<WPARAM>(context));
    return context;
}

HDC WindowSurface::GetContext()
{
    return EnsurePixels() ? m_pixels->CreateContext(gdi::ToRect(m_window.Client().rect())) : nullptr;
}

void WindowSurface::ShowDrawing()
{
    if (IsDrawnByMessage)
        m_window.Client().update();
}

// Where WM_PAINT alone draws, the pixels persist, also those that were drawn at another time: only the
// invalid part is asked for. Otherwise, what Qt has exposed on its own is invalid too, and has to be erased.
void WindowSurface::Paint(const QPaintEvent& event, const std::function<void()>& paint)
{
    const ActivePainting active;
    m_showsPixels = IsDrawnByMessage;
    if (IsDrawnByMessage) {
        EnsurePixels();
        if (!m_invalid.isEmpty())
            m_window.SendContained(WM_PAINT);
    } else {
        if (m_window.Attached != nullptr && !event.region().subtracted(m_invalid).isEmpty()) {
            m_invalid += event.region();
            m_erase = true;
        }
        m_asked = event.region().boundingRect();
        paint();
        m_asked = {};
        if (!m_showsPixels) // else BeginPaint has done it, and more may be invalid by now
            m_invalid = {};
    }
    if (!m_showsPixels || m_pixels == nullptr)
        return;
    QPainter painter(&m_window.Client());
    m_pixels->Show(painter, QPoint(0, 0));
}
