#!/usr/bin/env python3
"""Asks the style atlas how a curve is drawn, and prints the eight values in words."""
import argparse
import ctypes
import os
import sys
from ctypes import POINTER, byref, c_int, c_int16, c_uint8, c_uint16, c_uint32
from pathlib import Path

SHAPES = ("none", "cross", "triangle", "triangle, point down", "square", "plus", "asterisk", "diamond", "circle",
          "point")
FILLS = ("filled", "empty", "empty with a dot")
LINES = ("solid", "dashed", "dotted", "dash-dotted", "dash-dot-dot", "none")

# Type and name of what GetStyleAtlas takes, and of what it writes.
ASKED = ((c_int16, "column"), (c_uint16, "quantity"), (c_uint8, "subquantity"), (c_uint8, "index"),
         (c_uint16, "device"), (c_uint32, "flags"))
ANSWERED = ((c_uint32, "symbol colour"), (c_int16, "symbol shape"), (c_int16, "symbol size"), (c_int16, "symbol fill"),
        (c_uint32, "line colour"), (c_int16, "line style"), (c_int16, "line width"),
        (c_uint8, "line in the symbol's colour"))


def utf16(text):
    """The text as the library takes it: zero-terminated, in the machine's byte order."""
    data = (text + "\0").encode("utf-16-le" if sys.byteorder == "little" else "utf-16-be")
    return (c_uint16 * (len(data) // 2)).from_buffer_copy(data)


def make_layout_folder(host):
    """Makes the folder of the host's layout file. Without it styles can be asked for, but not be saved."""
    data = os.environ.get("XDG_DATA_HOME", "")
    data = Path(data) if os.path.isabs(data) else Path.home() / ".local/share"
    prefix = Path(os.environ.get("STYLEATLAS_PREFIX") or data / "styleatlas")
    try:
        prefix.parent.mkdir(parents=True, exist_ok=True)
        prefix.mkdir(mode=0o700, exist_ok=True)
        (prefix / "drive_c/ProgramData/Halvorn" / host).mkdir(parents=True, exist_ok=True)
    except OSError as error:
        print(error, file=sys.stderr)


def load(path):
    try:
        library = ctypes.CDLL(path)
    except OSError as error:
        sys.exit(f"{error}; --library names the file")
    library.StyleAtlasSetApplication.argtypes = [POINTER(c_uint16)]
    library.StyleAtlasSetApplication.restype = None
    library.GetStyleAtlas.argtypes = [kind for kind, _ in ASKED] + [POINTER(kind) for kind, _ in ANSWERED]
    library.GetStyleAtlas.restype = c_int
    return library


def in_words(name, value):
    words = {"symbol shape": SHAPES, "symbol fill": FILLS, "line style": LINES,
             "line in the symbol's colour": ("no", "yes")}
    if name.endswith(" colour") and name not in words:
        return f"#{value & 0xFF:02X}{value >> 8 & 0xFF:02X}{value >> 16 & 0xFF:02X}"
    if name not in words:
        return str(value)
    known = words[name]
    return known[value] if 0 <= value < len(known) else f"unknown ({value})"  # a layout file can bring any number


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--library", metavar="FILE", default="libstyleatlas.so.1",
                        help="the library, if it is not where libraries are (%(default)s)")
    parser.add_argument("--host", default="AirLab", help="the name under which to ask (%(default)s)")
    for _, name in ASKED:
        parser.add_argument(name, type=lambda text: int(text, 0))
    arguments = parser.parse_args()

    library = load(arguments.library)
    make_layout_folder(arguments.host)
    library.StyleAtlasSetApplication(utf16(arguments.host))
    values = [kind() for kind, _ in ANSWERED]
    if not library.GetStyleAtlas(*(getattr(arguments, name) for _, name in ASKED), *map(byref, values)):
        sys.exit("the table has no style for that")
    for (_, name), value in zip(ANSWERED, values):
        print(f"{name}: {in_words(name, value.value)}")


if __name__ == "__main__":
    main()
