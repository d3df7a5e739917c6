// System colours, edges, text and rectangles. Names, values and contracts are those of Windows; the bodies
// are in platform/gdi.
#pragma once

#include <windef.h>

// ---- System colours

constexpr int COLOR_WINDOW = 5;
constexpr int COLOR_MENUTEXT = 7;
constexpr int COLOR_WINDOWTEXT = 8;
constexpr int COLOR_HIGHLIGHT = 13;
constexpr int COLOR_HIGHLIGHTTEXT = 14;
constexpr int COLOR_BTNFACE = 15;
constexpr int COLOR_BTNSHADOW = 16;
constexpr int COLOR_GRAYTEXT = 17;
constexpr int COLOR_BTNTEXT = 18;
constexpr int COLOR_BTNHIGHLIGHT = 20;
constexpr int COLOR_3DDKSHADOW = 21;
constexpr int COLOR_3DLIGHT = 22;

// The desktop's current colour for the parts above, if there is an application object, otherwise that of a
// fixed table. Indexes are 0 to 30; black for any other.
COLORREF GetSysColor(int index);

// ---- Edges and marks

constexpr UINT BDR_RAISEDOUTER = 1;
constexpr UINT BDR_SUNKENOUTER = 2;
constexpr UINT BDR_RAISEDINNER = 4;
constexpr UINT BDR_SUNKENINNER = 8;
constexpr UINT EDGE_RAISED = BDR_RAISEDOUTER | BDR_RAISEDINNER;
constexpr UINT EDGE_SUNKEN = BDR_SUNKENOUTER | BDR_SUNKENINNER;
constexpr UINT BF_LEFT = 1;
constexpr UINT BF_TOP = 2;
constexpr UINT BF_RIGHT = 4;
constexpr UINT BF_BOTTOM = 8;
constexpr UINT BF_RECT = BF_LEFT | BF_TOP | BF_RIGHT | BF_BOTTOM;

// Draws the named sides of an edge inside the rectangle: the outer border, and the inner one within it, each
// one pixel thick. The right and bottom sides own the shared corners.
BOOL DrawEdge(HDC context, LPRECT rectangle, UINT edge, UINT flags);

constexpr UINT DFC_SCROLL = 3;
constexpr UINT DFCS_SCROLLDOWN = 1;
constexpr UINT DFCS_INACTIVE = 0x100;
constexpr UINT DFCS_PUSHED = 0x200;

// Draws the button of a scroll bar with a down arrow. Fails for any other type.
BOOL DrawFrameControl(HDC context, LPRECT rectangle, UINT type, UINT state);

// Inverts every second pixel along the inside of the rectangle: a second call removes it.
BOOL DrawFocusRect(HDC context, LPCRECT rectangle);

BOOL FillRect(HDC context, LPCRECT rectangle, HBRUSH brush);

// ---- Text

constexpr UINT DT_CENTER = 1;
constexpr UINT DT_VCENTER = 4; // of a single line
constexpr UINT DT_SINGLELINE = 0x20;
constexpr UINT DT_CALCRECT = 0x400;
constexpr UINT DT_NOPREFIX = 0x800;
constexpr UINT DT_END_ELLIPSIS = 0x8000;

// Draws text into a rectangle and gives the height of its lines. A negative count stands for zero-terminated
// text. An ampersand underlines the next character, except with DT_NOPREFIX. DT_CALCRECT doesn't draw, but
// sets right and bottom to the extent of the text. Text is limited to 8192 units. Without an application
// object that knows fonts, nothing is drawn and the size is 0.
int DrawTextW(HDC context, LPCWSTR text, int count, LPRECT rectangle, UINT format);

// ---- Rectangles

BOOL InflateRect(LPRECT rectangle, int x, int y);
BOOL OffsetRect(LPRECT rectangle, int x, int y);
BOOL PtInRect(LPCRECT rectangle, POINT point);
BOOL IsRectEmpty(LPCRECT rectangle);
