#include "ColorScheme.h"
#include "QtConvert.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>
#include <winuser.h>

namespace gdi
{

namespace
{

constexpr int sysColorCount = 31;

constexpr COLORREF black = RGB(0, 0, 0);
constexpr COLORREF white = RGB(255, 255, 255);
constexpr COLORREF face = RGB(192, 192, 192);
constexpr COLORREF lighterFace = RGB(223, 223, 223);
constexpr COLORREF shadow = RGB(128, 128, 128);
constexpr COLORREF navy = RGB(0, 0, 128);
constexpr COLORREF skyBlue = RGB(16, 132, 208);

// Without a desktop.
constexpr COLORREF classicColors[sysColorCount] = {
    face,               // 0 scroll bar
    RGB(0, 128, 128),   // 1 desktop
    navy,               // 2 caption of the active window
    shadow,             // 3 caption of other windows
    face,               // 4 menu
    white,              // 5 window
    black,              // 6 frame of a window
    black,              // 7 text in menus
    black,              // 8 text in windows
    white,              // 9 text in the active caption
    face,               // 10 border of the active window
    face,               // 11 border of other windows
    shadow,             // 12 workspace
    navy,               // 13 highlight
    white,              // 14 highlighted text
    face,               // 15 button
    shadow,             // 16 shadow of a button
    shadow,             // 17 disabled text
    black,              // 18 text on buttons
    face,               // 19 text in other captions
    white,              // 20 highlight of a button
    black,              // 21 dark shadow
    lighterFace,        // 22 light edge
    black,              // 23 text in tooltips
    RGB(255, 255, 225), // 24 tooltip
    black,              // 25 unused
    RGB(0, 0, 255),     // 26 link
    skyBlue,            // 27 far end of the active caption
    RGB(181, 181, 181), // 28 far end of other captions
    navy,               // 29 highlight in menus
    face,               // 30 menu bar
};

// The colours that come from the palette of windows.
struct DesktopPart {
    int Index;
    QPalette::ColorRole Role;
};
constexpr DesktopPart desktopParts[] = {
    {COLOR_WINDOW, QPalette::Base},
    {COLOR_MENUTEXT, QPalette::WindowText},
    {COLOR_WINDOWTEXT, QPalette::Text},
    {COLOR_HIGHLIGHT, QPalette::Highlight},
    {COLOR_HIGHLIGHTTEXT, QPalette::HighlightedText},
    {COLOR_BTNFACE, QPalette::Button},
    {COLOR_BTNSHADOW, QPalette::Dark},
    {COLOR_BTNTEXT, QPalette::ButtonText},
    {COLOR_BTNHIGHLIGHT, QPalette::Light},
    {COLOR_3DDKSHADOW, QPalette::Shadow},
};

// Between a button and its highlight; a shade of the button, if the desktop has no such colour.
QColor LightOf(const QPalette& palette)
{
    constexpr int shadePercent = 106;
    const QColor button = palette.color(QPalette::Active, QPalette::Button);
    const QColor light = palette.color(QPalette::Active, QPalette::Midlight);
    return light.lightness() >= button.lightness() ? light : button.darker(shadePercent);
}

// Caches the desktop's colours until its palette changes: painting a page of cells takes thousands of
// look-ups.
class DesktopColors
{
public:
    std::optional<COLORREF> Find(int index)
    {
        if (!HasDesktop())
            return std::nullopt;
        const QPalette palette = QGuiApplication::palette();
        if (std::exchange(m_paletteKey, palette.cacheKey()) != palette.cacheKey())
            Read(WindowPalette());
        return m_colors[index];
    }

private:
    void Read(const QPalette& palette)
    {
        for (const DesktopPart& part : desktopParts)
            m_colors[part.Index] = ToColorRef(palette.color(QPalette::Active, part.Role));
        m_colors[COLOR_3DLIGHT] = ToColorRef(LightOf(palette));
    }

    qint64 m_paletteKey = -1;
    std::optional<COLORREF> m_colors[sysColorCount];
};

DesktopColors desktopColors;

bool Exists(int index)
{
    return index >= 0 && index < sysColorCount;
}

} // namespace

} // namespace gdi

COLORREF GetSysColor(int index)
{
    if (!gdi::Exists(index))
        return gdi::black;
    return gdi::desktopColors.Find(index).value_or(gdi::classicColors[index]);
}
