#include "WindowSide.h"

#include "Capture.h"
#include "Contain.h"

#include <DeviceContext.h>
#include <QCoreApplication>
#include <QPainter>
#include <QtConvert.h>
#include <afxwin.h>
#include <unordered_set>

namespace
{

// Made on first use and never destroyed: widgets can outlive every static object.
std::unordered_set<const WindowSide*>& LiveWindows()
{
    static auto* const windows = new std::unordered_set<const WindowSide*>;
    return *windows;
}

} // namespace

WindowSide::WindowSide(QWidget& widget) : m_widget(widget)
{
    LiveWindows().insert(this);
}

WindowSide::~WindowSide()
{
    LiveWindows().erase(this);
}

WindowSide* WindowSide::Of(HWND handle)
{
    auto* const window = reinterpret_cast<WindowSide*>(handle);
    return LiveWindows().contains(window) ? window : nullptr;
}

WindowSide* WindowSide::Of(const QWidget* widget)
{
    auto* const window = dynamic_cast<const WindowSide*>(widget);
    return window != nullptr && LiveWindows().contains(window) ? const_cast<WindowSide*>(window) : nullptr;
}

WindowSide* WindowSide::Parent()
{
    return Of(m_widget.parentWidget());
}

LRESULT WindowSide::SendContained(UINT message, WPARAM wParam, LPARAM lParam, LRESULT failure) noexcept
{
    LRESULT result = failure;
    Contain([&] { result = Send(message, wParam, lParam); });
    return result;
}

void WindowSide::Notify(UINT code)
{
    if (WindowSide* const parent = Parent())
        parent->SendContained(WM_COMMAND, MAKEWPARAM(static_cast<UINT>(Id), code),
                              reinterpret_cast<LPARAM>(Handle()));
}

void WindowSide::Destroy()
{
    if (m_isGone)
        return;
    SendLastMessages();
    m_widget.hide();
    m_widget.deleteLater();
}

// The window hears that it goes, then the windows in it; then, from the inside out, that they are gone. No
// handler can keep it, not by an exception either.
void WindowSide::SendLastMessages()
{
    if (m_isGone)
        return;
    ReleaseCaptureOf(*this);
    SendContained(WM_DESTROY);
    for (QObject* const child : m_widget.children()) {
        if (WindowSide* const window = Of(qobject_cast<QWidget*>(child)))
            window->SendLastMessages();
    }
    SendContained(WM_NCDESTROY);
    m_isGone = true;
    Attached = nullptr;
    LiveWindows().erase(this);
}

QString WindowSide::Text() const
{
    return m_widget.windowTitle();
}

void WindowSide::SetText(const QString& text)
{
    m_widget.setWindowTitle(text);
}

LRESULT WindowSide::OnDefault(UINT message, WPARAM wParam, LPARAM /*lParam*/)
{
    switch (message) {
    case WM_PAINT:
        EndPaint(BeginPaint());
        return 0;
    case WM_ERASEBKGND:
        if (Background == 0)
            return 0;
        if (CDC* const dc = CDC::FromHandle(reinterpret_cast<HDC>(wParam))) {
            RECT client{0, 0, m_widget.width(), m_widget.height()};
            dc->FillSolidRect(&client, GetSysColor(Background - 1));
        }
        return 1;
    case WM_CLOSE:
        Destroy();
        return 0;
    case WM_SETFONT:
        Font = reinterpret_cast<HFONT>(wParam);
        m_widget.update();
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(Font);
    default:
        return 0;
    }
}

void WindowSide::Invalidate(const QRect& rectangle, bool erase)
{
    m_invalid += rectangle.intersected(m_widget.rect());
    m_erase = m_erase || erase;
    m_widget.update(rectangle);
}

void WindowSide::EnsurePixels()
{
    if (m_pixels.size() == m_widget.size())
        return;
    m_pixels = QImage(m_widget.size(), QImage::Format_RGB32);
    m_pixels.fill(Qt::black);
    m_invalid = m_widget.rect();
    m_erase = true;
}

HDC WindowSide::ContextOn(const QRect& clip)
{
    EnsurePixels();
    if (m_pixels.isNull())
        return nullptr;
    const gdi::Surface surface{reinterpret_cast<gdi::Pixel*>(m_pixels.bits()), m_pixels.width(),
                               m_pixels.height(),
                               m_pixels.bytesPerLine() / static_cast<qsizetype>(sizeof(gdi::Pixel))};
    return gdi::CreateSurfaceDC(surface, {clip.left(), clip.top(), clip.right() + 1, clip.bottom() + 1});
}

HDC WindowSide::BeginPaint()
{
    EnsurePixels();
    const HDC context = ContextOn(m_invalid.boundingRect());
    m_invalid = {};
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
    return ContextOn(m_widget.rect());
}

void WindowSide::ReleaseContext(HDC context)
{
    DeleteDC(context);
    m_widget.update();
}

// What somebody drew at another time stands in the pixels already; only what is invalid is asked for.
void WindowSide::PaintByMessage(const QRegion& exposed)
{
    EnsurePixels();
    if (HasInvalid())
        SendContained(WM_PAINT);
    if (m_pixels.isNull())
        return;
    QPainter painter(&m_widget);
    for (const QRect& rectangle : exposed)
        painter.drawImage(rectangle, m_pixels, rectangle);
}
