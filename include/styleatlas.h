/** @file
 * The C interface of the style atlas library. styleatlas.hpp wraps it for C++17.
 *
 * For every measured quantity and every file column, the style atlas holds how a curve is drawn: its symbol
 * and its line. A host calls StyleAtlasSetApplication() once, which loads the table, and then GetStyleAtlas()
 * for the style of each curve.
 *
 * @par Order
 * StyleAtlasSetApplication() comes first, and once; the other four functions may follow in any order, any
 * number of times. Before it the table is empty: GetStyleAtlas() returns 0. Once exit has begun (handlers of
 * atexit, destructors of global objects) a host should make no call; one that is made anyway is answered or
 * does nothing, and never aborts.
 *
 * @par Strings and lifetime
 * Strings are zero-terminated UTF-16 in the machine's byte order. They stay the caller's and are copied
 * before a call returns. Styles are returned as values, never as pointers into the table. No pointer argument
 * may be null. The table lives as long as the library is loaded, and nothing has to be closed. If the library
 * has shown no window, dlclose unloads it, and it starts with an empty table when it is opened again. Once it
 * has shown one, code and table stay until the process ends.
 *
 * @par Messages
 * Any call may have to report something to the user: a damaged layout file, or a unit library that cannot be
 * loaded. It then opens a message box and runs the event loop until the box is closed. What runs in this
 * loop, or in that of the editor, may call GetStyleAtlas() and nothing else. While the editor is open,
 * GetStyleAtlas() uses the table from before the edit.
 *
 * @par Windows
 * The editor and message boxes need a display, the package with the editor, and a QApplication; a host with
 * only a QCoreApplication or QGuiApplication gets none. In a host that doesn't use Qt, the library creates a
 * QApplication for the time of a window and destroys it afterwards. If windows can't be shown, messages go to
 * standard error and EditStyleAtlas() returns -1. Windows belong to one thread: that of the host's
 * application object, or the main thread if there is none. EditStyleAtlas() must be called on this thread;
 * messages from other threads go to standard error. While a window of the library is open, the host's windows
 * are repainted if they are Qt's; the manual describes what a host with another event loop can do. If the
 * display server ends while the editor is open, Qt ends the program.
 *
 * @par Threads
 * The library starts none in a program without windows, and takes no lock: calls must not overlap, and a
 * thread must not be cancelled during a call. Successive calls may come from different threads, except those
 * of EditStyleAtlas(). A child made by fork has a copy of the table and may call GetStyleAtlas(). It must
 * become another program (exec) before it shows windows or reports damage.
 *
 * @par Failures
 * No call throws, and none ends the host. If memory runs out, the table holds the rows that were made until
 * then.
 *
 * @par Files
 * What the library keeps on disk is below one prefix folder: the environment variable STYLEATLAS_PREFIX
 * (preferably an absolute path: a relative one follows the current folder), else "styleatlas" in
 * $XDG_DATA_HOME, if that is absolute, else ~/.local/share/styleatlas. Its folder drive_c/ is drive C. A
 * host's layout file is by default C:\\ProgramData\\Halvorn\\(host name)\\Style.Atlas. The library doesn't
 * create the folder of this file; unless an installer or the host does, nothing can be saved. "atlas-layout
 * prepare" does it in one step. The environment is read at each call, so no other thread may change it during
 * a call. Only the user's language and the folder of translations are fixed when the first text is shown.
 *
 * @par Compilers
 * The header is for C from C99 on and for C++ from C++11 on. Literals like u"AirLab" need C11; a C99 program
 * fills an array of char16_t.
 */
#ifndef STYLEATLAS_H
#define STYLEATLAS_H

#include <stdint.h>
#ifndef __cplusplus
#include <uchar.h>
#endif

/** @cond */
/* No pointer argument may be null, and results must not be ignored. Compilers that support it warn. */
#if defined(__GNUC__) || defined(__clang__)
#define STYLEATLAS_NONNULL __attribute__((nonnull))
#define STYLEATLAS_CHECKED __attribute__((warn_unused_result))
#else
#define STYLEATLAS_NONNULL
#define STYLEATLAS_CHECKED
#endif
/** @endcond */

#ifdef __cplusplus
extern "C" {
#endif

#define STYLEATLAS_FILE_COLUMNS 32 /**< Valid file columns are 0 to 31. */
#define STYLEATLAS_NO_DEVICE 65535 /**< The device of a quantity without one: -1 in 16 bits. */

/** What GetStyleAtlas() returns. */
enum StyleAtlasAnswer {
    STYLEATLAS_NOT_FOUND = 0, /**< nothing was written */
    STYLEATLAS_FOUND = 1      /**< all values were written */
};

/** What EditStyleAtlas() returns. */
enum StyleAtlasEditResult {
    STYLEATLAS_EDIT_NOT_SHOWN = -1, /**< there is no display or no editor, or the thread is the wrong one */
    STYLEATLAS_EDIT_OK = 1,         /**< the new styles are in force */
    STYLEATLAS_EDIT_CANCELLED = 2   /**< the table is unchanged */
};

/** Values of *symbolShape. A layout file can hold any other number; draw no symbol for it. */
enum StyleAtlasSymbolShape {
    STYLEATLAS_SHAPE_NONE = 0,       /**< no symbol */
    STYLEATLAS_SHAPE_CROSS = 1,      /**< two diagonals */
    STYLEATLAS_SHAPE_TRIANGLE = 2,   /**< point up */
    STYLEATLAS_SHAPE_TRIANGLE_2 = 3, /**< point down */
    STYLEATLAS_SHAPE_SQUARE = 4,     /**< its inside is white unless it is filled */
    STYLEATLAS_SHAPE_PLUS = 5,       /**< upright strokes */
    STYLEATLAS_SHAPE_ASTERISK = 6,   /**< a plus and a cross */
    STYLEATLAS_SHAPE_DIAMOND = 7,    /**< a kite, widest a quarter of its size above the middle */
    STYLEATLAS_SHAPE_CIRCLE = 8,     /**< its inside is white unless it is filled */
    STYLEATLAS_SHAPE_POINT = 9       /**< a disc of half the size, always filled */
};

/** Values of *symbolFill. A layout file can hold any other number; draw an empty symbol for it. */
enum StyleAtlasSymbolFill {
    STYLEATLAS_FILL_FILLED = 0,        /**< the inside has the symbol's colour */
    STYLEATLAS_FILL_EMPTY = 1,         /**< the outline alone */
    STYLEATLAS_FILL_EMPTY_WITH_DOT = 2 /**< the outline, and a dot of half the size in the middle */
};

/** Values of *lineStyle. A layout file can hold any other number; draw a solid line for it. The lengths are
 * those of the editor: pixels on and off, of lines of width 1. Wider lines are solid, but for
 * STYLEATLAS_LINE_NONE. */
enum StyleAtlasLineStyle {
    STYLEATLAS_LINE_SOLID = 0,        /**< without gaps */
    STYLEATLAS_LINE_DASHED = 1,       /**< 8, 4 */
    STYLEATLAS_LINE_DOTTED = 2,       /**< 3, 3 */
    STYLEATLAS_LINE_DASH_DOTTED = 3,  /**< 6, 2, 2, 2 */
    STYLEATLAS_LINE_DASH_DOT_DOT = 4, /**< 5, 3, 2, 3, 2, 3 */
    STYLEATLAS_LINE_NONE = 5          /**< no line */
};

#define STYLEATLAS_RED(color) ((color)&0xFFu)          /**< The red of a colour, 0 to 255. */
#define STYLEATLAS_GREEN(color) ((color) >> 8 & 0xFFu) /**< The green of a colour, 0 to 255. */
#define STYLEATLAS_BLUE(color) ((color) >> 16 & 0xFFu) /**< The blue of a colour, 0 to 255. */

/** Sets the name of the host and loads the table: the catalogue of the unit library, with the styles of the
 * host's layout file, or with distinct default styles if there is no such file. A host calls it once, before
 * every other function. A damaged layout file is reported in a message, and the table then holds the
 * catalogue with plain black lines.
 *
 * @param applicationName the name, zero-terminated; it stays the caller's. It selects the host's settings
 *     ("Quorvia" and "Tandrell" have settings of their own) and, letter for letter, the folder of its default
 *     layout file. An empty name is valid too. */
STYLEATLAS_NONNULL void StyleAtlasSetApplication(const char16_t* applicationName);

/** Gets the style of one curve: that of the row that fits the quantity best, in the given file column. Among
 * the rows of the quantity, the first of the best kind is taken: all five numbers equal; else subQuantity and
 * device equal; else subQuantity equal; else any. It allocates no memory, except while the unit library is
 * not loaded: every call tries again to load it.
 *
 * @param[in] fileColumn file column, counted from 0, below STYLEATLAS_FILE_COLUMNS; any other has no style
 * @param[in] quantity number of the quantity, as the unit library has it, and so the next four
 * @param[in] subQuantity kind of the value, for instance an average
 * @param[in] index further number of the quantity
 * @param[in] device place of the measurement, or STYLEATLAS_NO_DEVICE
 * @param[in] flags further bits of the quantity
 * @param[out] symbolColor colour of the symbol: red in the lowest byte, then green, then blue; the highest
 * byte has no meaning
 * @param[out] symbolShape a number of ::StyleAtlasSymbolShape
 * @param[out] symbolSize width and height of the symbol in device units of the drawing; the editor offers 2
 * to 25, a file can hold any number
 * @param[out] symbolFill a number of ::StyleAtlasSymbolFill
 * @param[out] lineColor stored colour of the line, in the bytes of symbolColor
 * @param[out] lineStyle a number of ::StyleAtlasLineStyle
 * @param[out] lineWidth width of the line in device units of the drawing; the editor offers 1 to 10, a file
 * can hold any number
 * @param[out] useSymbolColor 1 if the user wants the line in the symbol's colour instead of lineColor, else 0
 *
 * @returns STYLEATLAS_FOUND after writing all eight values; STYLEATLAS_NOT_FOUND, and nothing is written, if
 * the table has no row of this quantity (an empty table has none) or the row has no style for this file
 *     column */
STYLEATLAS_NONNULL STYLEATLAS_CHECKED int
GetStyleAtlas(int16_t fileColumn, uint16_t quantity, uint8_t subQuantity, uint8_t index, uint16_t device,
              uint32_t flags, uint32_t* symbolColor, int16_t* symbolShape, int16_t* symbolSize,
              int16_t* symbolFill, uint32_t* lineColor, int16_t* lineStyle, int16_t* lineWidth,
              uint8_t* useSymbolColor);

/** Opens the editor above the given window and returns when the user has closed it.
 *
 * @param parentWindow the desktop's id of a window: QWidget::winId() in a host with Qt, an X11 window in any
 *     other (under Wayland its windows have no id), 0 for none. An id that names no window counts as none.
 * The window stays the caller's.
 *
 * @retval STYLEATLAS_EDIT_OK The new styles are in force and, if possible, written to the layout file. A full
 *     disk or a missing right was reported to the user; a missing folder was not. Every style fetched before
 * is stale.
 * @retval STYLEATLAS_EDIT_CANCELLED The table is unchanged. If the user loaded a file meanwhile, the next
 * load reads it.
 * @retval STYLEATLAS_EDIT_NOT_SHOWN The editor cannot be shown: see Windows above. */
int EditStyleAtlas(uintptr_t parentWindow);

/** Loads the table again: the current catalogue of the unit library and the layout file, with the messages of
 * StyleAtlasSetApplication(). Every style fetched before is stale. */
void ReloadStyleAtlas(void);

/** Switches to another user's settings and loads that user's table, with the messages of
 * StyleAtlasSetApplication(). If the settings name no layout file, the user gets the one in use. Every style
 * fetched before is stale.
 *
 * @param userRoot the user's root below HKEY_USERS, zero-terminated; it stays the caller's, and so does
 * subKey
 * @param subKey the key below that root */
STYLEATLAS_NONNULL void StyleAtlasChangeUserInfo(const char16_t* userRoot, const char16_t* subKey);

#ifdef __cplusplus
}
#endif

#endif
