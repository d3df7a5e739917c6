"""Styles in Matplotlib's terms."""

from typing import Any, Dict, List, Tuple

from matplotlib.path import Path

from ._style import LineStyle, Style, SymbolFill, SymbolShape

_POINTS = 72 / 96  # of a pixel
_Corners = List[Tuple[float, float]]


def arguments(style: Style) -> Dict[str, Any]:
    """The arguments for ``Axes.plot``."""
    width = style.drawn_width
    # Matplotlib takes the lengths of dashes in widths of the line, and those here are of lines one pixel wide.
    result: Dict[str, Any] = {
        "color": style.drawn_line_color,
        "linewidth": width * _POINTS,
        "linestyle": "none" if style.line_style is LineStyle.NONE else (0, style.dashes) if style.dashes else "solid",
    }
    if style.drawn_size == 0:
        result["marker"] = "none"
        return result
    path = _figure(style)
    reach = max(abs(number) for corner in path.vertices for number in corner)
    result.update(marker=path, markersize=2 * reach * _POINTS, markeredgewidth=_POINTS,
                  markeredgecolor=style.symbol_color, markerfacecolor=style._inside() or "none")
    return result


def _figure(style: Style) -> Path:
    """The outline of the symbol around 0,0, in pixels with the y axis upwards."""
    half = min(style.symbol_size, 256) // 2
    quarter = min(style.symbol_size, 256) // 4
    shape = style.symbol_shape
    strokes: List[_Corners] = []
    if shape in (SymbolShape.PLUS, SymbolShape.ASTERISK):
        strokes += [[(-half, 0), (half, 0)], [(0, -half), (0, half)]]
    if shape in (SymbolShape.CROSS, SymbolShape.ASTERISK):
        strokes += [[(-half, half), (half, -half)], [(half, half), (-half, -half)]]
    outlines: Dict[SymbolShape, _Corners] = {
        SymbolShape.TRIANGLE: [(-half, -half), (half, -half), (0, half)],
        SymbolShape.TRIANGLE_2: [(-half, half), (0, -half), (half, half)],
        SymbolShape.SQUARE: [(x * (half - 0.5), y * (half - 0.5)) for x, y in ((-1, -1), (1, -1), (1, 1), (-1, 1))],
        SymbolShape.DIAMOND: [(0, half), (-half, quarter), (0, -half), (half, quarter)],
    }
    if shape in outlines:
        corners = outlines[shape]
        strokes.append([*corners, corners[0]])
    paths = [Path(stroke, closed=shape in outlines) for stroke in strokes]
    if shape is SymbolShape.CIRCLE:
        paths.append(Path.circle(radius=half - 0.5))
    if shape is SymbolShape.POINT:
        paths.append(Path.circle(radius=quarter - 0.5))
    has_dot = shape not in (SymbolShape.CROSS, SymbolShape.POINT)
    if has_dot and style.symbol_fill is SymbolFill.EMPTY_WITH_DOT:
        # A marker has one colour inside. Circles of the edge's colour, a pixel apart, leave nothing of it.
        paths += [Path.circle(radius=radius + 0.5) for radius in range(quarter)]
    return Path.make_compound_path(*paths)
