"""A style, and what plotting libraries make of it."""

import dataclasses
import enum
from typing import Any, Dict, Optional, Tuple

_MAX_SIZE = 256  # of a symbol, and of the width of a line: a layout file can hold any number


class SymbolShape(enum.IntEnum):
    """A number that is none of these, which a layout file can hold, counts as NONE."""

    NONE = 0
    CROSS = 1
    TRIANGLE = 2
    TRIANGLE_2 = 3
    SQUARE = 4
    PLUS = 5
    ASTERISK = 6
    DIAMOND = 7
    CIRCLE = 8
    POINT = 9

    @classmethod
    def _missing_(cls, value: object) -> Optional["SymbolShape"]:
        return cls.NONE if isinstance(value, int) else None


class SymbolFill(enum.IntEnum):
    """A number that is none of these counts as EMPTY; ``style_of`` makes it FILLED for a circle, as the editor does."""

    FILLED = 0
    EMPTY = 1
    EMPTY_WITH_DOT = 2

    @classmethod
    def _missing_(cls, value: object) -> Optional["SymbolFill"]:
        return cls.EMPTY if isinstance(value, int) else None


class LineStyle(enum.IntEnum):
    """A number that is none of these counts as SOLID."""

    SOLID = 0
    DASHED = 1
    DOTTED = 2
    DASH_DOTTED = 3
    DASH_DOT_DOT = 4
    NONE = 5

    @classmethod
    def _missing_(cls, value: object) -> Optional["LineStyle"]:
        return cls.SOLID if isinstance(value, int) else None


DASHES = {
    LineStyle.DASHED: (8, 4),
    LineStyle.DOTTED: (3, 3),
    LineStyle.DASH_DOTTED: (6, 2, 2, 2),
    LineStyle.DASH_DOT_DOT: (5, 3, 2, 3, 2, 3),
}
"""Pixels on and off, of lines one pixel wide; wider lines are solid."""

_STROKES = (SymbolShape.CROSS, SymbolShape.PLUS, SymbolShape.ASTERISK)
_PYQTGRAPH = {
    SymbolShape.CROSS: "x", SymbolShape.TRIANGLE: "t1", SymbolShape.TRIANGLE_2: "t", SymbolShape.SQUARE: "s",
    SymbolShape.PLUS: "+", SymbolShape.ASTERISK: "star", SymbolShape.DIAMOND: "d", SymbolShape.CIRCLE: "o",
    SymbolShape.POINT: "o",
}
_PLOTLY = {
    SymbolShape.CROSS: "x-thin", SymbolShape.TRIANGLE: "triangle-up", SymbolShape.TRIANGLE_2: "triangle-down",
    SymbolShape.SQUARE: "square", SymbolShape.PLUS: "cross-thin", SymbolShape.ASTERISK: "asterisk",
    SymbolShape.DIAMOND: "diamond", SymbolShape.CIRCLE: "circle", SymbolShape.POINT: "circle",
}


@dataclasses.dataclass(frozen=True)
class Style:
    """How one curve is drawn. Colours are "#rrggbb", sizes and widths are pixels."""

    symbol_color: str = "#000000"
    symbol_shape: SymbolShape = SymbolShape.NONE
    symbol_size: int = 10
    symbol_fill: SymbolFill = SymbolFill.EMPTY
    line_color: str = "#000000"
    """As stored: draw with ``drawn_line_color``."""
    line_style: LineStyle = LineStyle.SOLID
    line_width: int = 1
    use_symbol_color: bool = False
    """The user wants the line in the symbol's colour."""

    @property
    def drawn_line_color(self) -> str:
        """The colour of the line."""
        return self.symbol_color if self.use_symbol_color else self.line_color

    @property
    def drawn_size(self) -> int:
        """The width and height of the symbol; 0 for a style without a symbol."""
        if self.symbol_shape is SymbolShape.NONE:
            return 0
        size = min(max(self.symbol_size, 0), _MAX_SIZE) // 2 * 2
        return size // 4 * 2 if self.symbol_shape is SymbolShape.POINT else size

    @property
    def drawn_width(self) -> int:
        """The width of the line; 0 for a style without a line."""
        return 0 if self.line_style is LineStyle.NONE else min(max(abs(self.line_width), 1), _MAX_SIZE)

    @property
    def dashes(self) -> Tuple[int, ...]:
        """Pixels on, off, on, off ...; empty for a solid line, as one wider than a pixel is."""
        return DASHES.get(self.line_style, ()) if self.drawn_width == 1 else ()

    def matplotlib(self) -> Dict[str, Any]:
        """The arguments for ``Axes.plot``; needs Matplotlib. A pixel is 1/96 inch."""
        from ._matplotlib import arguments

        return arguments(self)

    def pyqtgraph(self) -> Dict[str, Any]:
        """The arguments for ``PlotItem.plot``. The star stands for the asterisk; dots in symbols are left out."""
        width = self.drawn_width
        pen: Dict[str, Any] = {"color": self.drawn_line_color, "width": width}
        if self.dashes:
            pen["dash"] = list(self.dashes)
        result: Dict[str, Any] = {"pen": pen if width > 0 else None, "symbol": None}
        if self.drawn_size > 0:
            result.update(symbol=_PYQTGRAPH[self.symbol_shape], symbolSize=self.drawn_size,
                          symbolPen={"color": self.symbol_color, "width": 1}, symbolBrush=self._inside())
        return result

    def plotly(self) -> Dict[str, Any]:
        """The arguments for ``plotly.graph_objects.Scatter``."""
        has_line = self.drawn_width > 0
        has_symbol = self.drawn_size > 0
        mode = "+".join(["lines"] * has_line + ["markers"] * has_symbol) or "none"
        result: Dict[str, Any] = {"mode": mode}
        if has_line:
            result["line"] = {"color": self.drawn_line_color, "width": self.drawn_width,
                              "dash": ",".join(f"{length}px" for length in self.dashes) or "solid"}
        if has_symbol:
            symbol = _PLOTLY[self.symbol_shape]
            if self._is_hollow() or self.symbol_shape in _STROKES:
                symbol += "-open"
            if self._is_hollow() and self.symbol_fill is SymbolFill.EMPTY_WITH_DOT:
                symbol += "-dot"
            result["marker"] = {"symbol": symbol, "size": self.drawn_size, "color": self.symbol_color,
                                "line": {"color": self.symbol_color, "width": 1}}
        return result

    def _is_hollow(self) -> bool:
        has_inside = self.symbol_shape not in (*_STROKES, SymbolShape.POINT)
        return has_inside and self.symbol_fill is not SymbolFill.FILLED

    def _inside(self) -> Any:
        """The colour inside the outline, None for none."""
        if self.symbol_shape in _STROKES:
            return None
        if not self._is_hollow():
            return self.symbol_color
        return "#ffffff" if self.symbol_shape in (SymbolShape.SQUARE, SymbolShape.CIRCLE) else None
