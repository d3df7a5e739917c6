// Between the layer's types and Qt's.
#pragma once

#include "GdiObjects.h"

#include <QColor>
#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QRect>
#include <QString>
#include <afxstr.h>
#include <algorithm>
#include <string_view>

namespace gdi
{

constexpr int commonFontHeight = 12; // pixels, of letters

// Whether there is an application object that knows the desktop's fonts and colours; one without windows
// doesn't.
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

// Of a box within a surface.
inline QRect ToQRect(const Box& box)
{
    return {static_cast<int>(box.Left), static_cast<int>(box.Top), static_cast<int>(box.Right - box.Left),
            static_cast<int>(box.Bottom - box.Top)};
}

inline QString ToQString(std::u16string_view text)
{
    return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

inline CString ToCString(const QString& text)
{
    return {reinterpret_cast<LPCTSTR>(text.utf16()), static_cast<int>(text.size())};
}

inline QFont ToQFont(const LOGFONTW& wanted)
{
    // A line is about a quarter higher than its letters.
    constexpr int lineParts = 5;
    constexpr int letterParts = 4;
    constexpr int highest = 1000;
    std::int64_t height = commonFontHeight;
    if (wanted.lfHeight < 0)
        height = -std::int64_t{wanted.lfHeight};
    else if (wanted.lfHeight > 0)
        height = std::int64_t{wanted.lfHeight} * letterParts / lineParts;
    QFont font;
    const std::u16string_view name(wanted.lfFaceName, LF_FACESIZE);
    if (const std::size_t length = std::min(name.find(u'\0'), name.size()); length > 0)
        font.setFamily(ToQString(name.substr(0, length)));
    font.setPixelSize(static_cast<int>(std::clamp<std::int64_t>(height, 1, highest)));
    font.setBold(wanted.lfWeight >= FW_BOLD);
    font.setItalic(wanted.lfItalic != 0);
    font.setUnderline(wanted.lfUnderline != 0);
    font.setStrikeOut(wanted.lfStrikeOut != 0);
    return font;
}

// The application's font for a handle that is none of a font.
inline QFont ToQFont(HFONT handle)
{
    const auto* const font = dynamic_cast<const Font*>(GdiObject::FromHandle(handle));
    return font != nullptr ? ToQFont(font->Wanted()) : QFont();
}

} // namespace gdi
