"""How each curve of a measurement is drawn: the styles of the style atlas, for Python programs.

    import styleatlas

    styleatlas.set_application("AirLab")
    style = styleatlas.style_of(0, styleatlas.Key(12, 2, 0, 3, 1))
    if style is not None:
        axes.plot(times, values, **style.matplotlib())

Calls must not overlap; one after another they may come from any thread, ``edit`` from that of the windows alone.
The library is taken from the file that the variable STYLEATLAS_LIBRARY names, else from the installation that this
package belongs to, else from where the system finds libraries. Without one, the first call raises OSError.
"""

from ._library import FILE_COLUMNS, NO_DEVICE, EditResult, Key, change_user, edit, reload, set_application, style_of
from ._style import LineStyle, Style, SymbolFill, SymbolShape

__all__ = ["FILE_COLUMNS", "NO_DEVICE", "EditResult", "Key", "LineStyle", "Style", "SymbolFill", "SymbolShape",
           "change_user", "edit", "reload", "set_application", "style_of"]
