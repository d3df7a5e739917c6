// Conversions between the layer's types and Qt's.
#pragma once

#include "GdiObjects.h"

#include <QColor>
#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <QString>
#include <afxstr.h>
#include <string_view>

namespace gdi
{

constexpr int commonFontHeight = 12; // pixels, of letters

// Whether there is an application object that knows the desktop's fonts and colours.
inline bool HasDesktop()
{
    return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr;
}

// Shares the pixels.
inline QImage ToQImage(const Surface& surface)
{
    return {reinterpret_cast<uchar*>(surface.Pixels), surface.Width, surface.Height,
            static_cast<qsizetype>(surface.Stride) * static_cast<qsizetype>(sizeof(Pixel)),
            QImage::Format_RGB32};
}

// Shares the pixels of an image of the same format, 32 bits without alpha.
inline Surface ToSurface(QImage& image)
{
    return {reinterpret_cast<Pixel*>(image.bits()), image.width(), image.height(),
            image.bytesPerLine() / static_cast<qsizetype>(sizeof(Pixel))};
}

inline QColor ToQColor(COLORREF color)
{
    return QColor::fromRgb(ToPixel(color));
}

inline COLORREF ToColorRef(const QColor& color)
{
    return RGB(static_cast<BYTE>(color.red()), static_cast<BYTE>(color.green()),
               static_cast<BYTE>(color.blue()));
}

inline QPoint ToQPoint(POINT point)
{
    return {point.x, point.y};
}

inline POINT ToPoint(QPoint point)
{
    return {point.x(), point.y()};
}

inline QRect ToQRect(const RECT& rect)
{
    return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

// The box has to lie within a surface.
inline QRect ToQRect(const Box& box)
{
    return {static_cast<int>(box.Left), static_cast<int>(box.Top), static_cast<int>(box.Right - box.Left),
            static_cast<int>(box.Bottom - box.Top)};
}

inline RECT ToRect(const QRect& rect)
{
    return {rect.x(), rect.y(), rect.x() + rect.width(), rect.y() + rect.height()};
}

inline Box ToBox(const QRect& rect)
{
    return ToBox(ToRect(rect));
}

// As messages carry positions and sizes.
inline LPARAM ToLParam(QPoint point)
{
    return MAKELPARAM(point.x(), point.y());
}
inline LPARAM ToLParam(QSize size)
{
    return MAKELPARAM(size.width(), size.height());
}

inline QString ToQString(std::u16string_view text)
{
    return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}
inline QString ToQString(LPCWSTR text) // null is the empty text
{
    return text != nullptr ? ToQString(std::u16string_view(text)) : QString();
}

// The characters of a text, followed by a zero, while it isn't changed.
inline std::u16string_view ToView(const QString& text)
{
    return {reinterpret_cast<LPCWSTR>(text.utf16()), static_cast<std::size_t>(text.size())};
}

inline CString ToCString(const QString& text)
{
    return {ToView(text).data(), static_cast<int>(text.size())};
}

QFont ToQFont(const LOGFONTW& wanted);
QFont ToQFont(HFONT handle); // the application's font for a handle that isn't a font's
LOGFONTW ToLogFont(const QFont& font);

} // namespace gdi
