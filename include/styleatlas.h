/* styleatlas.h: the C interface of the style atlas library. styleatlas.hpp wraps it for C++17.
 *
 * For every measured quantity and every file column, the style atlas holds how a curve is drawn: its symbol
 * and its line. A host calls StyleAtlasSetApplication once, which loads the table, and then GetStyleAtlas for
 * the style of each curve.
 *
 * Order. StyleAtlasSetApplication comes first, and once; the other four functions may follow in any order,
 * any number of times. Before it the table is empty: GetStyleAtlas returns 0. Once exit has begun (handlers
 * of atexit, destructors of global objects) a host should make no call; one that is made anyway is answered
 * or does nothing, and never aborts.
 *
 * Strings and lifetime. Strings are zero-terminated UTF-16 in the machine's byte order. They stay the
 * caller's and are copied before a call returns. Styles are returned as values, never as pointers into the
 * table. No pointer argument may be null. The table lives as long as the library is loaded, and nothing has
 * to be closed. If the library has shown no window, dlclose unloads it, and it starts with an empty table
 * when it is opened again. Once it has shown one, code and table stay until the process ends.
 *
 * Messages. Any call may have to report something to the user: a damaged layout file, or a unit library that
 * cannot be loaded. It then opens a message box and runs the event loop until the box is closed. What runs in
 * this loop, or in that of the editor, may call GetStyleAtlas and nothing else. While the editor is open,
 * GetStyleAtlas uses the table from before the edit.
 *
 * Windows. The editor and message boxes need a display, the package with the editor, and a QApplication; a
 * host with only a QCoreApplication or QGuiApplication gets none. In a host that doesn't use Qt, the library
 * creates a QApplication for the time of a window and destroys it afterwards. If windows can't be shown,
 * messages go to standard error and EditStyleAtlas returns -1. Windows belong to one thread: that of the
 * host's application object, or the main thread if there is none. EditStyleAtlas must be called on this
 * thread; messages from other threads go to standard error. While a window of the library is open, the host's
 * windows are repainted if they are Qt's; docs/for-hosts.md describes what a host with another event loop can
 * do. If the display server ends while the editor is open, Qt ends the program.
 *
 * Threads. The library starts none in a program without windows, and takes no lock: calls must not overlap,
 * and a thread must not be cancelled during a call. Successive calls may come from different threads, except
 * those of EditStyleAtlas. A child made by fork has a copy of the table and may call GetStyleAtlas. It must
 * become another program (exec) before it shows windows or reports damage.
 *
 * Failures. No call throws, and none ends the host. If memory runs out, the table holds the rows that were
 * made until then.
 *
 * Files. What the library keeps on disk is below one prefix folder: the environment variable
 * STYLEATLAS_PREFIX (preferably an absolute path: a relative one follows the current folder), else
 * "styleatlas" in $XDG_DATA_HOME, if that is absolute, else ~/.local/share/styleatlas. Its folder drive_c/ is
 * drive C. A host's layout file is by default C:\ProgramData\Halvorn\<host name>\Style.Atlas. The library
 * doesn't create the folder of this file; unless an installer or the host does, nothing can be saved.
 * "atlas-layout prepare" does it in one step. The environment is read at each call, so no other thread may
 * change it during a call. Only the user's language and the folder of translations are fixed when the first
 * text is shown.
 *
 * The header is for C from C99 on and for C++ from C++11 on. Literals like u"AirLab" need C11; a C99 program
 * fills an array of char16_t.
 */
#ifndef STYLEATLAS_H
#define STYLEATLAS_H

#include <stdint.h>
#ifndef __cplusplus
#include <uchar.h>
#endif

/* No pointer argument may be null, and results must not be ignored. Compilers that support it warn. */
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

#define STYLEATLAS_FILE_COLUMNS 32 /* valid file columns are 0 to 31 */
#define STYLEATLAS_NO_DEVICE 65535 /* device of a quantity without one: -1 in 16 bits */

/* What GetStyleAtlas returns. */
enum StyleAtlasAnswer { STYLEATLAS_NOT_FOUND = 0, STYLEATLAS_FOUND = 1 };

/* What EditStyleAtlas returns. */
enum StyleAtlasEditResult {
    STYLEATLAS_EDIT_NOT_SHOWN = -1,
    STYLEATLAS_EDIT_OK = 1,
    STYLEATLAS_EDIT_CANCELLED = 2
};

/* Values of *symbolShape. A layout file can hold any other number; draw no symbol for it. */
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

/* The components of a colour, each 0 to 255. Its highest byte has no meaning. */
#define STYLEATLAS_RED(color) ((color)&0xFFu)
#define STYLEATLAS_GREEN(color) ((color) >> 8 & 0xFFu)
#define STYLEATLAS_BLUE(color) ((color) >> 16 & 0xFFu)

/* Sets the name of the host and loads the table: the catalogue of the unit library, with the styles of the
 * host's layout file, or with distinct default styles if there is no such file. A host calls it once, before
 * every other function. The name selects the host's settings ("Quorvia" and "Tandrell" have settings of their
 * own) and, letter for letter, the folder of its default layout file; an empty name is valid too. A damaged
 * layout file is reported in a message, and the table then holds the catalogue with plain black lines. */
STYLEATLAS_NONNULL void StyleAtlasSetApplication(const char16_t* applicationName);

/* Gets the style of one curve: that of the row that fits the quantity best, in the given file column.
 *
 *   fileColumn    file column, counted from 0, below STYLEATLAS_FILE_COLUMNS
 *   quantity, subQuantity, index, device, flags
 *                 the identity of the quantity, as the unit library numbers it. Among the rows of the
 *                 quantity, the first of the best kind is taken: all five equal; else subQuantity and device
 *                 equal; else subQuantity equal; else any.
 *   symbolColor, lineColor
 *                 colours: red in the lowest byte, then green, then blue
 *   symbolShape, symbolFill, lineStyle
 *                 numbers of the enumerations above
 *   symbolSize, lineWidth
 *                 in device units of the drawing; the editor offers 2 to 25 and 1 to 10, a file can hold any
 *   useSymbolColor
 *                 1 if the user wants the line in the symbol's colour, else 0. lineColor is the stored
 *                 colour in either case.
 *
 * Returns 1 and writes all eight values; or returns 0 and writes none, if the table has no row of this
 * quantity (an empty table has none) or the row holds no style for this file column. It allocates no memory,
 * except while the unit library is not loaded: every call tries again to load it. */
STYLEATLAS_NONNULL STYLEATLAS_CHECKED int
GetStyleAtlas(int16_t fileColumn, uint16_t quantity, uint8_t subQuantity, uint8_t index, uint16_t device,
              uint32_t flags, uint32_t* symbolColor, int16_t* symbolShape, int16_t* symbolSize,
              int16_t* symbolFill, uint32_t* lineColor, int16_t* lineStyle, int16_t* lineWidth,
              uint8_t* useSymbolColor);

/* Opens the editor above the given window and returns when the user has closed it:
 *
 *    1  after OK: the new styles are in force and, if possible, written to the layout file. A full disk or a
 *       missing right was reported to the user; a missing folder was not.
 *    2  after Cancel: the table is unchanged. If the user loaded a file meanwhile, the next load reads it.
 *   -1  the editor cannot be shown: see Windows above.
 *
 * parentWindow is the desktop's id of a window: QWidget::winId() in a host with Qt, an X11 window in any
 * other (under Wayland its windows have no id), 0 for none. An id that names no window counts as none. The
 * window stays the caller's. */
int EditStyleAtlas(uintptr_t parentWindow);

/* Loads the table again: the current catalogue of the unit library and the layout file. Every style fetched
 * before is stale. */
void ReloadStyleAtlas(void);

/* Switches to another user's settings and loads that user's table. userRoot is the user's root below
 * HKEY_USERS, subKey the key below it. If the settings name no layout file, the user gets the one in use.
 * Every style fetched before is stale. */
STYLEATLAS_NONNULL void StyleAtlasChangeUserInfo(const char16_t* userRoot, const char16_t* subKey);

#ifdef __cplusplus
}
#endif

#endif
