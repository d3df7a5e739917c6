"""The functions of the shared library."""

import ctypes
import dataclasses
import enum
import functools
import os
import sys
from ctypes import POINTER, byref, c_int, c_int16, c_size_t, c_uint8, c_uint16, c_uint32
from pathlib import Path
from typing import Optional

from ._style import LineStyle, Style, SymbolFill, SymbolShape

FILE_COLUMNS = 32
"""Valid file columns are 0 to 31."""
NO_DEVICE = 0xFFFF
"""The device of a quantity without one."""

_FILE = "libstyleatlas.so.1"
_KEY = (c_uint16, c_uint8, c_uint8, c_uint16, c_uint32)
_STYLE = (c_uint32, c_int16, c_int16, c_int16, c_uint32, c_int16, c_int16, c_uint8)


@dataclasses.dataclass(frozen=True)
class Key:
    """The identity of a quantity, as the unit library numbers it."""

    quantity: int
    sub_quantity: int = 0
    index: int = 0
    device: int = NO_DEVICE
    flags: int = 0


class EditResult(enum.IntEnum):
    """What became of the editor."""

    NOT_SHOWN = -1
    OK = 1
    CANCELLED = 2


def _path() -> str:
    if named := os.environ.get("STYLEATLAS_LIBRARY"):
        return named
    beside = Path(__file__).resolve().parent / "../../.." / _FILE  # .../lib/python3/dist-packages/styleatlas
    return str(beside) if beside.is_file() else _FILE


@functools.cache
def _library() -> ctypes.CDLL:
    library = ctypes.CDLL(_path())
    library.StyleAtlasSetApplication.argtypes = [POINTER(c_uint16)]
    library.StyleAtlasSetApplication.restype = None
    library.GetStyleAtlas.argtypes = [c_int16, *_KEY, *(POINTER(kind) for kind in _STYLE)]
    library.GetStyleAtlas.restype = c_int
    library.EditStyleAtlas.argtypes = [c_size_t]
    library.EditStyleAtlas.restype = c_int
    library.ReloadStyleAtlas.argtypes = []
    library.ReloadStyleAtlas.restype = None
    library.StyleAtlasChangeUserInfo.argtypes = [POINTER(c_uint16), POINTER(c_uint16)]
    library.StyleAtlasChangeUserInfo.restype = None
    return library


def _utf16(text: str) -> "ctypes.Array[c_uint16]":
    if "\0" in text:
        raise ValueError("the text has a zero in it")
    data = (text + "\0").encode("utf-16-le" if sys.byteorder == "little" else "utf-16-be", "surrogatepass")
    return (c_uint16 * (len(data) // 2)).from_buffer_copy(data)


def set_application(name: str) -> None:
    """Sets the name of the host and loads the table of styles: once, before all else.

    The name selects the host's settings and, letter for letter, the folder of its default layout file, which
    ``atlas-layout prepare NAME`` makes. A name with a zero in it raises ValueError.
    """
    _library().StyleAtlasSetApplication(_utf16(name))


def style_of(column: int, key: Key) -> Optional[Style]:
    """The style of a curve: that of the row which fits the quantity best, in a file column counted from 0.

    None if the table has no row of the quantity, or no style for the file column, which may be any number. A part
    of the key that is out of its range (16, 8, 8, 16 and 32 bits) raises ValueError.
    """
    parts = dataclasses.asdict(key)
    for (name, value), kind in zip(parts.items(), _KEY):
        if not 0 <= value < 1 << 8 * ctypes.sizeof(kind):
            raise ValueError(f"the {name} {value} has more than {8 * ctypes.sizeof(kind)} bits")
    if not 0 <= column < FILE_COLUMNS:
        return None
    values = [kind() for kind in _STYLE]
    if not _library().GetStyleAtlas(column, *parts.values(), *map(byref, values)):
        return None
    symbol_color, shape, size, fill, line_color, line, width, use_symbol_color = (value.value for value in values)
    return Style(_hex(symbol_color), SymbolShape(shape), size, _fill(shape, fill), _hex(line_color),
                 LineStyle(line), width, bool(use_symbol_color))


def _fill(shape: int, fill: int) -> SymbolFill:
    is_unknown_of_circle = shape == SymbolShape.CIRCLE and fill not in list(SymbolFill)
    return SymbolFill.FILLED if is_unknown_of_circle else SymbolFill(fill)


def edit(parent: int = 0) -> EditResult:
    """Opens the editor above a window and returns when the user has closed it.

    The parent is the desktop's id of a window, 0 for none: ``winId()`` in a program with Qt, an X11 window in any
    other. After EditResult.OK every style that was asked for before is stale.
    """
    return EditResult(_library().EditStyleAtlas(parent))


def reload() -> None:
    """Loads the table again. Every style that was asked for before is stale."""
    _library().ReloadStyleAtlas()


def change_user(root: str, sub_key: str) -> None:
    """Switches to the settings of another user: the root below HKEY_USERS, and the key below that.

    Every style that was asked for before is stale. A text with a zero in it raises ValueError.
    """
    _library().StyleAtlasChangeUserInfo(_utf16(root), _utf16(sub_key))


def _hex(color: int) -> str:
    return f"#{color & 0xFF:02x}{color >> 8 & 0xFF:02x}{color >> 16 & 0xFF:02x}"
