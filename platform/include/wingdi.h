// Device contexts, the objects selected into them, and drawing. Names, values and contracts are those of
// Windows; the bodies are in platform/gdi.
//
// A context draws on a 32-bit surface, and nothing outside its clip rectangle. Coordinates are pixels; those
// beyond 2^27 count as 2^27. A null handle makes every function fail, that is give 0; a handle that isn't
// null has to be one that these functions gave out and that hasn't been deleted.
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
// A process has at most 10000 of them, then none can be made and the functions give null. Who makes an object
// deletes it. An object that a context still has selected goes when the context lets go of it.

constexpr int PS_SOLID = 0;
constexpr int PS_DASH = 1;
constexpr int PS_DOT = 2;
constexpr int PS_DASHDOT = 3;
constexpr int PS_DASHDOTDOT = 4;
constexpr int PS_NULL = 5;

// A pen of width 0 is one pixel wide, and a negative width counts by its size. A pen wider than one pixel is
// solid whatever its style, unless that is PS_NULL; so is a pen of a style that doesn't exist.
HPEN CreatePen(int style, int width, COLORREF color);

HBRUSH CreateSolidBrush(COLORREF color);

constexpr int LF_FACESIZE = 32;
constexpr LONG FW_NORMAL = 400;
constexpr LONG FW_BOLD = 700;

// lfHeight: below 0 the height of the letters in pixels, above 0 that of a line, 0 for a common size. Of the
// rest weight, italic, underline, strike-out and the face name are heeded; an empty name stands for the
// desktop's font.
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

// A black bitmap; null when a side isn't positive, or there is no memory for it. One context at a time can
// have it.
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

// The surfaces have all colours, so a palette can be selected and realized, and changes nothing.
HPALETTE CreatePalette(const LOGPALETTE* palette);
HPALETTE SelectPalette(HDC context, HPALETTE palette, BOOL forceBackground);
UINT RealizePalette(HDC context);

constexpr int WHITE_BRUSH = 0;
constexpr int NULL_BRUSH = 5;
constexpr int BLACK_PEN = 7;
constexpr int NULL_PEN = 8;
constexpr int DEFAULT_GUI_FONT = 17;

// One of those above, which nobody deletes; null for another number.
HGDIOBJ GetStockObject(int number);

// Copies the LOGFONTW of a font and gives its size in bytes; 0 for other objects and for a buffer that is too
// small.
int GetObjectW(HGDIOBJ object, int size, void* buffer);

// Gives the object that was selected in its place. Null when the bitmap is in another context.
HGDIOBJ SelectObject(HDC context, HGDIOBJ object);

BOOL DeleteObject(HGDIOBJ object);

// ---- Contexts

constexpr int TRANSPARENT = 1;
constexpr int OPAQUE = 2;
constexpr int RASTERCAPS = 38;
constexpr int RC_PALETTE = 0x100;

// A context on memory, on which nothing can be drawn until a bitmap is selected into it.
HDC CreateCompatibleDC(HDC context);
BOOL DeleteDC(HDC context);
int GetDeviceCaps(HDC context, int index); // 0: no capability that anybody asks for

// Each gives the value before; CLR_INVALID or 0 on failure.
COLORREF SetTextColor(HDC context, COLORREF color);
COLORREF SetBkColor(HDC context, COLORREF color);
int SetBkMode(HDC context, int mode);
COLORREF GetTextColor(HDC context);
COLORREF GetBkColor(HDC context);

BOOL PtVisible(HDC context, int x, int y);

// ---- Drawing

BOOL MoveToEx(HDC context, int x, int y, LPPOINT previous);

// Strokes from the current position up to, not including, the point, and moves there. The gaps of a styled
// pen take the background colour in mode OPAQUE and stay untouched in mode TRANSPARENT; its dashes begin anew
// with each line. A wide pen has round ends, which reach half its width past the first and the last pixel of
// the line.
BOOL LineTo(HDC context, int x, int y);

// Outline, one pixel thick whatever the pen's width, and interior of a box without its right and bottom edge.
// With the null pen the interior fills the box but for one more pixel at the right and the bottom. Sides may
// be exchanged.
BOOL Rectangle(HDC context, int left, int top, int right, int bottom);
BOOL Ellipse(HDC context, int left, int top, int right, int bottom);

// Paints with the brush from the point on, up, down and sideways, to pixels of the given colour and the edges
// of the clip rectangle. Fails when the point has that colour or lies outside the clip rectangle.
BOOL FloodFill(HDC context, int x, int y, COLORREF border);

// Fails, as no path is ever open.
BOOL CloseFigure(HDC context);

constexpr DWORD SRCCOPY = 0x00CC0020;

// Copies pixels; both contexts may be the same. Only SRCCOPY is known.
BOOL BitBlt(HDC to, int x, int y, int width, int height, HDC from, int fromX, int fromY, DWORD operation);

// The size of a single line of text in pixels; 0 by 0 while there is no application object that could know
// fonts.
BOOL GetTextExtentPoint32W(HDC context, LPCWSTR text, int length, LPSIZE size);
