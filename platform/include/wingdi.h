// Device contexts, the objects selected into them, and drawing. Names, values and contracts are those of
// Windows; the bodies are in platform/gdi.
//
// A context draws on a 32-bit surface, within its clip rectangle. Coordinates are pixels and limited to
// +-2^27. A function fails, that is gives 0, for a null handle; any other handle has to be valid.
#pragma once

#include <windef.h>

constexpr COLORREF RGB(BYTE red, BYTE green, BYTE blue)
{
    return static_cast<COLORREF>(red | (green << 8) | (blue << 16));
}
constexpr BYTE GetRValue(COLORREF color)
{
    return static_cast<BYTE>(color);
}
constexpr BYTE GetGValue(COLORREF color)
{
    return static_cast<BYTE>(color >> 8);
}
constexpr BYTE GetBValue(COLORREF color)
{
    return static_cast<BYTE>(color >> 16);
}
constexpr COLORREF CLR_INVALID = 0xFFFFFFFF;
constexpr COLORREF CLR_DEFAULT = 0xFF000000;

// ---- Objects
//
// A process has at most 10000 of them; more can't be created. The creator deletes an object. A selected
// object is deleted when the context releases it.

constexpr int PS_SOLID = 0;
constexpr int PS_DASH = 1;
constexpr int PS_DOT = 2;
constexpr int PS_DASHDOT = 3;
constexpr int PS_DASHDOTDOT = 4;
constexpr int PS_NULL = 5;

// A pen of width 0 is one pixel wide; the sign of the width is ignored. A pen wider than one pixel is solid,
// except with PS_NULL; so is a pen of an unknown style.
HPEN CreatePen(int style, int width, COLORREF color);

HBRUSH CreateSolidBrush(COLORREF color);

constexpr int LF_FACESIZE = 32;
constexpr LONG FW_NORMAL = 400;
constexpr LONG FW_BOLD = 700;

// lfHeight in pixels: negative for letters, positive for lines, 0 for a default. Weight, italic, underline,
// strike-out and the face name are used, the rest is ignored. An empty name stands for the desktop's font.
struct LOGFONTW {
    LONG lfHeight;
    LONG lfWidth;
    LONG lfEscapement;
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    WCHAR lfFaceName[LF_FACESIZE];
};
HFONT CreateFontIndirectW(const LOGFONTW* font);

// A black bitmap; null if a side isn't positive, and without memory. It can be selected into one context at a
// time.
HBITMAP CreateCompatibleBitmap(HDC context, int width, int height);

struct PALETTEENTRY {
    BYTE peRed;
    BYTE peGreen;
    BYTE peBlue;
    BYTE peFlags;
};
struct LOGPALETTE {
    WORD palVersion;
    WORD palNumEntries;
    PALETTEENTRY palPalEntry[1];
};

// Surfaces have all colours: palettes can be selected and realized, without effect.
HPALETTE CreatePalette(const LOGPALETTE* palette);
HPALETTE SelectPalette(HDC context, HPALETTE palette, BOOL forceBackground);
UINT RealizePalette(HDC context);

constexpr int WHITE_BRUSH = 0;
constexpr int NULL_BRUSH = 5;
constexpr int BLACK_PEN = 7;
constexpr int NULL_PEN = 8;
constexpr int DEFAULT_GUI_FONT = 17;

// One of the objects above, which are never deleted; null for any other number.
HGDIOBJ GetStockObject(int number);

// Copies the LOGFONTW of a font and gives its size in bytes; 0 for other objects and if the buffer is too
// small.
int GetObjectW(HGDIOBJ object, int size, void* buffer);

// Gives the previous object. Null if the bitmap is selected into another context.
HGDIOBJ SelectObject(HDC context, HGDIOBJ object);

BOOL DeleteObject(HGDIOBJ object);

// ---- Contexts

constexpr int TRANSPARENT = 1;
constexpr int OPAQUE = 2;
constexpr int RASTERCAPS = 38;
constexpr int RC_PALETTE = 0x100;

// A memory context, which draws on the selected bitmap.
HDC CreateCompatibleDC(HDC context);
BOOL DeleteDC(HDC context);
int GetDeviceCaps(HDC context, int index); // 0: none of the capabilities

// Each gives the previous value; CLR_INVALID or 0 on failure.
COLORREF SetTextColor(HDC context, COLORREF color);
COLORREF SetBkColor(HDC context, COLORREF color);
int SetBkMode(HDC context, int mode);
COLORREF GetTextColor(HDC context);
COLORREF GetBkColor(HDC context);

// Whether anything there is within the clip rectangle.
BOOL PtVisible(HDC context, int x, int y);
BOOL RectVisible(HDC context, LPCRECT rectangle);

// ---- Drawing

BOOL MoveToEx(HDC context, int x, int y, LPPOINT previous);

// Draws from the current position up to, not including, the point, and moves there. The gaps of a styled pen
// take the background colour in mode OPAQUE and stay unchanged in mode TRANSPARENT; the dashes restart with
// each line. A wide pen has round ends, which reach half its width beyond the first and the last pixel of the
// line.
BOOL LineTo(HDC context, int x, int y);

// Draws outline and interior of a box without its right and bottom edge. The outline has one pixel, whatever
// the pen's width. With the null pen the interior loses one more pixel at the right and the bottom. Sides may
// be exchanged.
BOOL Rectangle(HDC context, int left, int top, int right, int bottom);
BOOL Ellipse(HDC context, int left, int top, int right, int bottom);

// Fills the area around the point with the brush, up to the border colour and the clip rectangle. Fails if
// the point has that colour or lies outside of the clip rectangle.
BOOL FloodFill(HDC context, int x, int y, COLORREF border);

// Fails: there are no paths.
BOOL CloseFigure(HDC context);

constexpr DWORD SRCCOPY = 0x00CC0020;

// Copies pixels, also within one context. Supports SRCCOPY only.
BOOL BitBlt(HDC to, int x, int y, int width, int height, HDC from, int fromX, int fromY, DWORD operation);

// The size of a single line of text in pixels; 0 by 0 without an application object that knows fonts.
BOOL GetTextExtentPoint32W(HDC context, LPCWSTR text, int length, LPSIZE size);
