/* A host with Xlib: the wind speed of three files as curves. The key e opens the editor above the window, q
 * ends the program.
 *
 * The plot is drawn into a pixmap that is the background of the window. So the X server itself repaints the
 * window, even while the editor is open and the program handles no events. */
#define _POSIX_C_SOURCE 200809L
#include "layout_folder.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/keysym.h>
#include <styleatlas.h>

enum { FileCount = 3, ReadingCount = 12, MaxSize = 256 };

/* Miles per hour, times ten. */
static const int readings[FileCount][ReadingCount] = {
    {74, 80, 126, 115, 143, 149, 86, 138, 201, 86, 69, 97},
    {86, 97, 161, 92, 86, 143, 97, 69, 138, 115, 109, 92},
    {41, 92, 92, 109, 46, 109, 51, 63, 57, 74, 86, 143},
};

typedef struct {
    uint32_t symbolColor, lineColor;
    int16_t shape, size, fill, line, width;
    uint8_t useSymbolColor;
} Style;

typedef struct {
    Display* display;
    Window window;
    Pixmap picture;
    GC gc;
    int width, height;
} Plot;

/* A layout file can hold any number. */
static int Bounded(int number)
{
    return number < 0 ? 0 : number > MaxSize ? MaxSize : number;
}

static int FindStyle(int file, Style* style)
{
    return GetStyleAtlas((int16_t)file, 12, 2, 0, 3, 1, &style->symbolColor, &style->shape, &style->size,
                         &style->fill, &style->lineColor, &style->line, &style->width,
                         &style->useSymbolColor) == STYLEATLAS_FOUND;
}

static void SetColor(const Plot* plot, uint32_t color)
{
    XColor wanted;
    wanted.red = (unsigned short)(STYLEATLAS_RED(color) * 257);
    wanted.green = (unsigned short)(STYLEATLAS_GREEN(color) * 257);
    wanted.blue = (unsigned short)(STYLEATLAS_BLUE(color) * 257);
    if (XAllocColor(plot->display, DefaultColormap(plot->display, DefaultScreen(plot->display)), &wanted))
        XSetForeground(plot->display, plot->gc, wanted.pixel);
}

/* Sets the pen for the line of a style; 0 if it has none. A line wider than 1 is solid. */
static int SetPen(const Plot* plot, const Style* style)
{
    static const struct {
        int count;
        const char lengths[6];
    } dashes[] = {{0, ""}, {2, {8, 4}}, {2, {3, 3}}, {4, {6, 2, 2, 2}}, {6, {5, 3, 2, 3, 2, 3}}};
    const int width = Bounded(style->width);
    const int isDashed =
        width <= 1 && style->line >= STYLEATLAS_LINE_DASHED && style->line < STYLEATLAS_LINE_NONE;
    if (style->line == STYLEATLAS_LINE_NONE)
        return 0;
    SetColor(plot, style->useSymbolColor ? style->symbolColor : style->lineColor);
    XSetLineAttributes(plot->display, plot->gc, (unsigned)width, isDashed ? LineOnOffDash : LineSolid,
                       CapRound, JoinRound);
    if (isDashed)
        XSetDashes(plot->display, plot->gc, 0, dashes[style->line].lengths, dashes[style->line].count);
    return 1;
}

static void DrawStroke(const Plot* plot, int x, int y, int halfX, int halfY)
{
    XDrawLine(plot->display, plot->picture, plot->gc, x - halfX, y - halfY, x + halfX, y + halfY);
}

static void DrawDisc(const Plot* plot, int x, int y, int radius, int isFilled)
{
    const unsigned size = (unsigned)radius * 2;
    (isFilled ? XFillArc : XDrawArc)(plot->display, plot->picture, plot->gc, x - radius, y - radius, size,
                                     size, 0, 360 * 64);
}

/* Draws a closed outline around a point; filled with the symbol's colour, or with white, or not at all. */
static void DrawOutline(const Plot* plot, int x, int y, const XPoint* corners, int count, const Style* style)
{
    XPoint points[5];
    int i;
    for (i = 0; i <= count; ++i) {
        points[i].x = (short)(x + corners[i % count].x);
        points[i].y = (short)(y + corners[i % count].y);
    }
    if (style->fill != STYLEATLAS_FILL_FILLED)
        SetColor(plot, 0xFFFFFF);
    if (style->fill == STYLEATLAS_FILL_FILLED || style->shape == STYLEATLAS_SHAPE_SQUARE)
        XFillPolygon(plot->display, plot->picture, plot->gc, points, count, Convex, CoordModeOrigin);
    SetColor(plot, style->symbolColor);
    XDrawLines(plot->display, plot->picture, plot->gc, points, count + 1, CoordModeOrigin);
}

static void DrawCircle(const Plot* plot, int x, int y, int radius, const Style* style)
{
    if (style->fill != STYLEATLAS_FILL_FILLED)
        SetColor(plot, 0xFFFFFF);
    DrawDisc(plot, x, y, radius, 1);
    SetColor(plot, style->symbolColor);
    DrawDisc(plot, x, y, radius, 0);
}

static void DrawSymbol(const Plot* plot, int x, int y, const Style* style)
{
    const short half = (short)(Bounded(style->size) / 2);
    const short quarter = (short)(Bounded(style->size) / 4);
    const XPoint up[] = {{(short)-half, half}, {half, half}, {0, (short)-half}};
    const XPoint down[] = {{(short)-half, (short)-half}, {0, half}, {half, (short)-half}};
    const XPoint square[] = {
        {(short)-half, (short)-half}, {half, (short)-half}, {half, half}, {(short)-half, half}};
    const XPoint kite[] = {
        {0, (short)-half}, {(short)-half, (short)-quarter}, {0, half}, {half, (short)-quarter}};
    int hasInside = 1;
    XSetLineAttributes(plot->display, plot->gc, 1, LineSolid, CapButt, JoinMiter);
    SetColor(plot, style->symbolColor);
    switch (style->shape) {
    case STYLEATLAS_SHAPE_TRIANGLE:
        DrawOutline(plot, x, y, up, 3, style);
        break;
    case STYLEATLAS_SHAPE_TRIANGLE_2:
        DrawOutline(plot, x, y, down, 3, style);
        break;
    case STYLEATLAS_SHAPE_SQUARE:
        DrawOutline(plot, x, y, square, 4, style);
        break;
    case STYLEATLAS_SHAPE_DIAMOND:
        DrawOutline(plot, x, y, kite, 4, style);
        break;
    case STYLEATLAS_SHAPE_CIRCLE:
        DrawCircle(plot, x, y, half, style);
        break;
    default:
        hasInside = 0;
    }
    if (style->shape == STYLEATLAS_SHAPE_CROSS || style->shape == STYLEATLAS_SHAPE_ASTERISK) {
        DrawStroke(plot, x, y, half, half);
        DrawStroke(plot, x, y, half, -half);
    }
    if (style->shape == STYLEATLAS_SHAPE_PLUS || style->shape == STYLEATLAS_SHAPE_ASTERISK) {
        DrawStroke(plot, x, y, half, 0);
        DrawStroke(plot, x, y, 0, half);
    }
    if (style->shape == STYLEATLAS_SHAPE_POINT ||
        (hasInside && style->fill == STYLEATLAS_FILL_EMPTY_WITH_DOT))
        DrawDisc(plot, x, y, quarter, 1);
}

static void DrawCurve(const Plot* plot, int file, const Style* style)
{
    XPoint points[ReadingCount];
    int i;
    for (i = 0; i < ReadingCount; ++i) {
        points[i].x = (short)(30 + i * (plot->width - 60) / (ReadingCount - 1));
        points[i].y = (short)(plot->height - 30 - readings[file][i] * (plot->height - 60) / 210);
    }
    if (SetPen(plot, style))
        XDrawLines(plot->display, plot->picture, plot->gc, points, ReadingCount, CoordModeOrigin);
    for (i = 0; i < ReadingCount; ++i)
        DrawSymbol(plot, points[i].x, points[i].y, style);
}

/* Draws all curves in their styles of this moment, and shows them. */
static void Redraw(Plot* plot)
{
    static const char hint[] = "Wind speed of three files   e: styles   q: quit";
    int file;
    Style style;
    if (plot->picture != None)
        XFreePixmap(plot->display, plot->picture);
    plot->picture = XCreatePixmap(plot->display, plot->window, (unsigned)plot->width, (unsigned)plot->height,
                                  (unsigned)DefaultDepth(plot->display, DefaultScreen(plot->display)));
    SetColor(plot, 0xFFFFFF);
    XFillRectangle(plot->display, plot->picture, plot->gc, 0, 0, (unsigned)plot->width,
                   (unsigned)plot->height);
    SetColor(plot, 0);
    XDrawString(plot->display, plot->picture, plot->gc, 10, 18, hint, (int)sizeof hint - 1);
    for (file = 0; file < FileCount; ++file) {
        if (FindStyle(file, &style))
            DrawCurve(plot, file, &style);
    }
    XSetWindowBackgroundPixmap(plot->display, plot->window, plot->picture);
    XClearWindow(plot->display, plot->window);
}

static void EditStyles(Plot* plot)
{
    XEvent event;
    XSync(plot->display, False); /* what was drawn is shown before this program stops to handle events */
    if (EditStyleAtlas((uintptr_t)plot->window) == STYLEATLAS_EDIT_OK)
        Redraw(plot);
    while (XCheckTypedWindowEvent(plot->display, plot->window, KeyPress, &event)) {
        /* typed into the window while the editor was open */
    }
}

static void OpenWindow(Plot* plot)
{
    const int screen = DefaultScreen(plot->display);
    plot->window =
        XCreateSimpleWindow(plot->display, RootWindow(plot->display, screen), 0, 0, (unsigned)plot->width,
                            (unsigned)plot->height, 0, 0, WhitePixel(plot->display, screen));
    plot->gc = XCreateGC(plot->display, plot->window, 0, NULL);
    XStoreName(plot->display, plot->window, "Wind");
    XSelectInput(plot->display, plot->window, KeyPressMask | StructureNotifyMask);
    Redraw(plot);
    XMapWindow(plot->display, plot->window);
}

static void HandleEvents(Plot* plot)
{
    Atom closing = XInternAtom(plot->display, "WM_DELETE_WINDOW", False);
    XEvent event;
    XSetWMProtocols(plot->display, plot->window, &closing, 1);
    for (;;) {
        XNextEvent(plot->display, &event);
        if (event.type == ConfigureNotify &&
            (event.xconfigure.width != plot->width || event.xconfigure.height != plot->height)) {
            plot->width = event.xconfigure.width;
            plot->height = event.xconfigure.height;
            Redraw(plot);
        } else if (event.type == KeyPress && XLookupKeysym(&event.xkey, 0) == XK_e) {
            EditStyles(plot);
        } else if ((event.type == KeyPress && XLookupKeysym(&event.xkey, 0) == XK_q) ||
                   (event.type == ClientMessage && (Atom)event.xclient.data.l[0] == closing)) {
            return;
        }
    }
}

int main(void)
{
    Plot plot = {NULL, None, None, NULL, 640, 360};
    plot.display = XOpenDisplay(NULL);
    if (plot.display == NULL) {
        fputs("there is no display\n", stderr);
        return 1;
    }
    MakeLayoutFolder("AirLab");
    StyleAtlasSetApplication(u"AirLab");
    OpenWindow(&plot);
    HandleEvents(&plot);
    XCloseDisplay(plot.display);
    return 0;
}
