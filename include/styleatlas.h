/* styleatlas.h: the C interface of the style atlas library. styleatlas.hpp wraps it for C++17.
 *
 * The style atlas says, for every measured quantity and every file column, how a curve is drawn: by which
 * symbol and by which line. A host names itself once with StyleAtlasSetApplication, which loads the table,
 * and then asks for the style of each curve with GetStyleAtlas.
 *
 * Order. StyleAtlasSetApplication comes once and first; the other four may follow in any order, as often
 * as the host likes. Before it the table is empty: GetStyleAtlas returns 0. Once exit has begun, in handlers
 * of atexit and destructors of global objects, a host should make no call; one that comes is answered or does
 * nothing, and never aborts.
 *
 * Strings and lifetime. Strings are zero-terminated UTF-16 in the machine's byte order. They stay the
 * caller's and are copied before a call returns. Styles are handed out as values, never as pointers into
 * the table. No pointer argument may be null. The table lives as long as the library is loaded, and nothing
 * has to be closed. A dlclose unloads a library that has shown no window, and opened again it starts with an
 * empty table; once it has shown one, code and table stay until the process ends.
 *
 * Messages. Any call can have something to tell the user: a damaged layout file, or a unit library that
 * cannot be loaded. It opens a message box then and runs the event loop until that is closed. What runs in
 * this loop, as in that of the editor, may call GetStyleAtlas and nothing else. While the editor is open, the
 * answer is that of the table before the edit.
 *
 * Windows (the editor and message boxes) need a display, the package with the editor, and a QApplication: a
 * host with no more than a QCoreApplication or QGuiApplication gets none. For a host that knows nothing of
 * Qt the library makes a QApplication for the time of a window, and destroys it. Where windows can't be
 * shown, messages go to standard error and EditStyleAtlas returns -1. Windows belong to one thread: that of
 * the host's application object, else the main thread. EditStyleAtlas is to be called there; a message of any
 * other thread goes to standard error. A host's windows are repainted meanwhile if they are Qt's;
 * docs/for-hosts.md tells what a host with another event loop can do. A display server that ends while the
 * editor is open ends the program, which is Qt's doing.
 *
 * Threads. The library starts none in a program without windows, and takes no lock: calls must not overlap,
 * and a thread must not be cancelled in one. One after another, calls may come from different threads, but
 * for EditStyleAtlas. A child made by fork has a copy of the table and may call GetStyleAtlas. A child that
 * shows windows, or tells what is damaged, has to be another program first (exec).
 *
 * Failures. No call throws, and none ends the host. Where memory runs out, the table holds the rows that were
 * made until then.
 *
 * What is kept on disk stands below one prefix folder: the environment variable STYLEATLAS_PREFIX (best
 * an absolute path: a relative one follows the current folder), else "styleatlas" in $XDG_DATA_HOME, if
 * that is absolute, else ~/.local/share/styleatlas. In it, drive_c/ stands for drive C. The layout file
 * of a host is by default C:\ProgramData\Halvorn\<host name>\Style.Atlas. The library makes no folder for it:
 * an installer or the host does, or a save has nowhere to go; "atlas-host prepare" does it in one step. The
 * environment is read at each call, so that no other thread may change it then; but the user's language and
 * the folder of translations are settled by the first text that is shown.
 *
 * The header is for C from C99 on and for C++ from C++11 on. Literals as u"AirLab" need C11; a C99
 * program fills an array of char16_t.
 */
#ifndef STYLEATLAS_H
#define STYLEATLAS_H

#include <stdint.h>
#ifndef __cplusplus
#include <uchar.h>
#endif

/* No pointer argument may be null; the result has to be looked at. Compilers that know how to will tell. */
#if defined(__GNUC__) || defined(__clang__)
#define STYLEATLAS_NONNULL __attribute__((nonnull))
#define STYLEATLAS_CHECKED __attribute__((warn_unused_result))
#else
#define STYLEATLAS_NONNULL
#define STYLEATLAS_CHECKED
#endif

#ifdef __cplusplus
extern "C" {
#endif

#define STYLEATLAS_FILE_COLUMNS 32 /* the table answers for file columns from 0 to one less */
#define STYLEATLAS_NO_DEVICE 65535 /* the device of a quantity that belongs to none: -1 in 16 bits */

/* What GetStyleAtlas returns. */
enum StyleAtlasAnswer { STYLEATLAS_NOT_FOUND = 0, STYLEATLAS_FOUND = 1 };

/* What EditStyleAtlas returns. */
enum StyleAtlasEditResult {
    STYLEATLAS_EDIT_NOT_SHOWN = -1,
    STYLEATLAS_EDIT_OK = 1,
    STYLEATLAS_EDIT_CANCELLED = 2
};

/* Values of *symbolShape. A layout file can bring any other number; draw no symbol for it. */
enum StyleAtlasSymbolShape {
    STYLEATLAS_SHAPE_NONE = 0,
    STYLEATLAS_SHAPE_CROSS = 1,
    STYLEATLAS_SHAPE_TRIANGLE = 2,   /* point up */
    STYLEATLAS_SHAPE_TRIANGLE_2 = 3, /* point down */
    STYLEATLAS_SHAPE_SQUARE = 4,
    STYLEATLAS_SHAPE_PLUS = 5,
    STYLEATLAS_SHAPE_ASTERISK = 6,
    STYLEATLAS_SHAPE_DIAMOND = 7,
    STYLEATLAS_SHAPE_CIRCLE = 8,
    STYLEATLAS_SHAPE_POINT = 9
};

/* Values of *symbolFill. */
enum StyleAtlasSymbolFill {
    STYLEATLAS_FILL_FILLED = 0,
    STYLEATLAS_FILL_EMPTY = 1,
    STYLEATLAS_FILL_EMPTY_WITH_DOT = 2
};

/* Values of *lineStyle. */
enum StyleAtlasLineStyle {
    STYLEATLAS_LINE_SOLID = 0,
    STYLEATLAS_LINE_DASHED = 1,
    STYLEATLAS_LINE_DOTTED = 2,
    STYLEATLAS_LINE_DASH_DOTTED = 3,
    STYLEATLAS_LINE_DASH_DOT_DOT = 4,
    STYLEATLAS_LINE_NONE = 5
};

/* The parts of a colour, each 0 to 255. Its highest byte means nothing. */
#define STYLEATLAS_RED(color) ((color)&0xFFu)
#define STYLEATLAS_GREEN(color) ((color) >> 8 & 0xFFu)
#define STYLEATLAS_BLUE(color) ((color) >> 16 & 0xFFu)

/* Names the host, and loads the table: the catalogue of the unit library, with the host's layout file laid
 * over it, or with distinct default styles where there is no such file. A host calls it once, before every
 * other function. The name chooses the host's settings ("Quorvia" and "Tandrell" have settings of their own)
 * and, letter for letter, the folder of its default layout file; an empty name is a name like any other. A
 * damaged layout file is told in a message, and the table then holds the catalogue with plain black lines. */
STYLEATLAS_NONNULL void StyleAtlasSetApplication(const char16_t* applicationName);

/* Gives the style of one curve: of the table's row that fits the quantity best, in the given file column.
 *
 *   fileColumn    file column, counted from 0, below STYLEATLAS_FILE_COLUMNS
 *   quantity, subQuantity, index, device, flags
 *                 the identity of the quantity, as the unit library numbers it. Of the rows of the
 *                 quantity, an equal one is best, then the first with equal subQuantity and device, then the
 *                 first with equal subQuantity, then the first.
 *   symbolColor, lineColor
 *                 colours: red in the lowest byte, then green, then blue
 *   symbolShape, symbolFill, lineStyle
 *                 numbers of the enumerations above
 *   symbolSize, lineWidth
 *                 in device units of the drawing; the editor offers 2 to 25 and 1 to 10, a file can bring any
 *   useSymbolColor
 *                 1 if the user wants the line in the symbol's colour, else 0. lineColor is handed out as
 *                 it is stored in either case.
 *
 * Returns 1 and writes all eight values; or returns 0 and writes none, where the table has no row of this
 * quantity (an empty table included) or the row holds no style for this file column. It allocates nothing,
 * unless the unit library could not be loaded so far: that is tried again at every call. */
STYLEATLAS_NONNULL STYLEATLAS_CHECKED int
GetStyleAtlas(int16_t fileColumn, uint16_t quantity, uint8_t subQuantity, uint8_t index, uint16_t device,
              uint32_t flags, uint32_t* symbolColor, int16_t* symbolShape, int16_t* symbolSize,
              int16_t* symbolFill, uint32_t* lineColor, int16_t* lineStyle, int16_t* lineWidth,
              uint8_t* useSymbolColor);

/* Opens the editor above the given window and returns when the user has closed it: 1 after OK, when the new
 * styles are in force, and have been written to the layout file where that was possible (the user has been
 * told of a full disk or a missing right, and of a missing folder not); 2 after Cancel, when the table is as
 * before (a file that the user loaded meanwhile is taken by the next load); -1 where the editor cannot be
 * shown: see Windows above. parentWindow is the desktop's id of a window: what QWidget::winId() gives in a
 * host with Qt, an X11 window in any other, 0 for none. An id that names no window counts as none. The window
 * stays the caller's. */
int EditStyleAtlas(uintptr_t parentWindow);

/* Loads the table again: the unit library's catalogue of this moment and the layout file. Every style fetched
 * before is stale. */
void ReloadStyleAtlas(void);

/* Moves to another user's settings and loads that user's table. userRoot is the user's root below HKEY_USERS,
 * subKey the key below it. A user whose settings name no layout file takes over the one in use. Every style
 * fetched before is stale. */
STYLEATLAS_NONNULL void StyleAtlasChangeUserInfo(const char16_t* userRoot, const char16_t* subKey);

#ifdef __cplusplus
}
#endif

#endif
