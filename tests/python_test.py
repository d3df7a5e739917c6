"""The Python package, against the library that STYLEATLAS_LIBRARY names."""

import dataclasses
import re
from pathlib import Path

import matplotlib
import numpy
import pytest
import styleatlas
from matplotlib.backends.backend_agg import FigureCanvasAgg
from matplotlib.figure import Figure
from styleatlas import EditResult, Key, LineStyle, Style, SymbolFill, SymbolShape

SOURCES = Path(__file__).parent.parent
WIND = Key(12, 2, 0, 3, 1)
SHAPES = [shape for shape in SymbolShape if shape is not SymbolShape.NONE]


@pytest.fixture(autouse=True, scope="module")
def table(tmp_path_factory):
    with pytest.MonkeyPatch.context() as patch:
        patch.setenv("STYLEATLAS_PREFIX", str(tmp_path_factory.mktemp("prefix")))
        for name in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "MENSURA_CATALOGUE"):
            patch.delenv(name, raising=False)
        styleatlas.set_application("AirLab")
        yield


def test_styles_are_those_of_the_table():
    assert styleatlas.style_of(1, WIND) == Style(
        "#a52a00", SymbolShape.TRIANGLE_2, 10, SymbolFill.FILLED, "#a52a00", LineStyle.SOLID, 1, False)
    styleatlas.reload()
    assert styleatlas.style_of(31, Key(12)).symbol_color == "#c0c0c0"
    assert [styleatlas.style_of(column, WIND) for column in (-1, 32, 1 << 40)] == [None] * 3
    assert styleatlas.style_of(0, Key(9999)) is None
    styleatlas.change_user("S-1-5-21", "Software\\Halvorn")
    assert styleatlas.edit() is EditResult.NOT_SHOWN
    for bad in (Key(-1), Key(1 << 16), Key(1, 256), Key(1, 0, -1), Key(1, device=1 << 16), Key(1, flags=1 << 32)):
        with pytest.raises(ValueError):
            styleatlas.style_of(0, bad)
    with pytest.raises(ValueError):
        styleatlas.set_application("a\0b")


def test_numbers_are_those_of_the_library():
    header = (SOURCES / "include/styleatlas.h").read_text()
    for enumeration, prefix in ((SymbolShape, "SHAPE"), (SymbolFill, "FILL"), (LineStyle, "LINE"), (EditResult, "EDIT")):
        listed = re.findall(rf"STYLEATLAS_{prefix}_(\w+) = (-?\d+)", header)
        assert {name: int(value) for name, value in listed} == {one.name: one.value for one in enumeration}
    patterns = re.findall(r"Lengths\[\] = \{(.*)\}", (SOURCES / "platform/gdi/DashPattern.h").read_text())
    assert [Style(line_style=LineStyle(1 + i)).dashes for i in range(4)] == [
        tuple(map(int, pattern.split(","))) for pattern in patterns]
    assert (SymbolShape(77), SymbolFill(-1), LineStyle(77)) == (SymbolShape.NONE, SymbolFill.EMPTY, LineStyle.SOLID)
    with pytest.raises(ValueError):
        SymbolShape("circle")


def picture_of(style, points):
    """What Matplotlib draws of a curve through the points, in pixels."""
    figure = Figure(figsize=(1, 1), dpi=96)
    canvas = FigureCanvasAgg(figure)
    axes = figure.add_axes([0, 0, 1, 1], xlim=(0, 96), ylim=(0, 96))
    axes.set_axis_off()
    with matplotlib.rc_context({"path.snap": False}):
        axes.plot([x for x, _ in points], [y for _, y in points], **style.matplotlib())
        canvas.draw()
    return numpy.asarray(canvas.buffer_rgba())[..., :3].min(axis=2) < 128


@pytest.mark.parametrize("shape", SHAPES)
@pytest.mark.parametrize("fill", SymbolFill)
def test_matplotlib_draws_the_symbols_as_large_and_as_full(shape, fill):
    style = Style("#000000", shape, 40, fill, line_style=LineStyle.NONE)
    ink = picture_of(style, [(48, 48)])
    rows, columns = numpy.nonzero(ink)
    wanted = 20 if shape is SymbolShape.POINT else 40
    assert abs(numpy.ptp(columns) + 1 - wanted) <= 2 and abs(numpy.ptp(rows) + 1 - wanted) <= 2
    is_stroked = shape in (SymbolShape.CROSS, SymbolShape.PLUS, SymbolShape.ASTERISK)
    has_dot = fill is SymbolFill.EMPTY_WITH_DOT and shape is not SymbolShape.CROSS
    is_filled = shape is SymbolShape.POINT or fill is SymbolFill.FILLED and not is_stroked
    assert ink[44:52, 45:47].all() == (is_filled or has_dot)
    share = ink.sum() / ink.size
    assert is_filled == (share > (0.03 if shape is SymbolShape.POINT else 0.07)), share


def test_lines_have_their_dashes_and_widths():
    for line_style in LineStyle:
        style = Style(line_style=line_style)
        row = picture_of(style, [(0, 48), (96, 48)]).any(axis=0)
        on = sum(style.dashes[::2]) / sum(style.dashes) if style.dashes else line_style is not LineStyle.NONE
        assert row.mean() == pytest.approx(on, abs=0.15), line_style
        wide = dataclasses.replace(style, line_width=9)
        assert picture_of(wide, [(0, 48.5), (96, 48.5)]).any(axis=1).sum() == (0 if line_style is LineStyle.NONE else 9)
    assert Style("#000001", line_color="#000002", use_symbol_color=True).matplotlib()["color"] == "#000001"


def test_other_libraries_get_plain_dictionaries():
    circle = Style("#0000ff", SymbolShape.CIRCLE, 11, SymbolFill.EMPTY_WITH_DOT, "#ff0000", LineStyle.DOTTED, 1)
    assert circle.plotly() == {
        "mode": "lines+markers", "line": {"color": "#ff0000", "width": 1, "dash": "3px,3px"},
        "marker": {"symbol": "circle-open-dot", "size": 10, "color": "#0000ff",
                   "line": {"color": "#0000ff", "width": 1}}}
    assert circle.pyqtgraph() == {
        "pen": {"color": "#ff0000", "width": 1, "dash": [3, 3]}, "symbol": "o", "symbolSize": 10,
        "symbolPen": {"color": "#0000ff", "width": 1}, "symbolBrush": "#ffffff"}
    nothing = Style(line_style=LineStyle.NONE)
    assert nothing.plotly() == {"mode": "none"}
    assert nothing.pyqtgraph() == {"pen": None, "symbol": None}
    huge = Style(symbol_shape=SymbolShape.CROSS, symbol_size=32767, line_width=-32768)
    assert (huge.drawn_size, huge.drawn_width, huge.plotly()["marker"]["symbol"]) == (256, 256, "x-thin-open")
