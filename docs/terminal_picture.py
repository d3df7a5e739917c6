#!/usr/bin/env python3
"""Makes a picture (SVG, on standard output) of what a command prints to a terminal, with its background colours.

docs/list.svg is made by
  docs/terminal_picture.py build/release/bin/atlas-host list data/airquality-1973-0[5-7].csv > docs/list.svg
"""
import html
import os
import pty
import re
import sys

CELL_WIDTH, LINE_HEIGHT, MARGIN = 7.2, 16, 12

os.environ.update(COLORTERM="truecolor", TERM="xterm", LC_ALL="C.UTF-8")
output = bytearray()


def keep(descriptor):
    data = os.read(descriptor, 4096)
    output.extend(data)
    return b"\0"  # nothing of it goes to standard output


saved = os.dup(1)
os.dup2(os.open(os.devnull, os.O_WRONLY), 1)
status = pty.spawn(sys.argv[1:], keep)
os.dup2(saved, 1)
if status != 0:
    sys.exit("the command failed")

shapes, widest = [], 0
lines = output.decode().replace("\r", "").rstrip("\n").split("\n")
for number, line in enumerate(lines):
    column, fill = 0, None
    y = MARGIN + LINE_HEIGHT * (number + 1)
    for text, code in re.findall(r"([^\x1b]*)(?:\x1b\[([\d;]*)m)?", line):
        x = MARGIN + column * CELL_WIDTH
        if text and fill:
            shapes.append(f'<rect x="{x:.1f}" y="{y - 12}" width="{len(text) * CELL_WIDTH:.1f}" '
                          f'height="{LINE_HEIGHT - 2}" fill="rgb({fill})"/>')
        if text.strip():
            shapes.append(f'<text x="{x:.1f}" y="{y}" xml:space="preserve" '
                          f'textLength="{len(text) * CELL_WIDTH:.1f}">{html.escape(text)}</text>')
        column += len(text)
        parts = code.split(";")
        fill = ",".join(parts[2:]) if parts[:2] == ["48", "2"] else None
    widest = max(widest, column)

print(f'<svg xmlns="http://www.w3.org/2000/svg" width="{2 * MARGIN + widest * CELL_WIDTH:.0f}" '
      f'height="{2 * MARGIN + LINE_HEIGHT * len(lines)}">')
print('<rect width="100%" height="100%" rx="6" fill="#f7f7f4"/>')
print('<g font-family="monospace" font-size="12" fill="#222">', *shapes, '</g>', '</svg>', sep="\n")
