#!/usr/bin/env python3
"""Plots files of measured data with Matplotlib, each curve in the style that the style atlas has for it.

    airquality.py [--picture FILE] FILE.csv...

The first column of a file is a date, the others are quantities of the air; one file is one file column. The button
"Styles..." opens the editor of the styles.
"""
import argparse
import csv
import datetime
import os
from pathlib import Path

import matplotlib.pyplot as plt
import styleatlas
from matplotlib.widgets import Button

HOST = "AirLab"
QUANTITIES = {
    "Ozone": ("Ozone, ppb", styleatlas.Key(10, 2, 0, 1)),
    "Solar": ("Solar radiation, langley", styleatlas.Key(11, 8, 0, 2)),
    "Wind": ("Wind speed, mph", styleatlas.Key(12, 2, 0, 3, 1)),
    "Temp": ("Temperature, °F", styleatlas.Key(20, 7, 0, 3)),
}


def make_layout_folder() -> None:
    """Makes the folder of the layout file, without which styles can't be saved."""
    data = Path(os.environ.get("XDG_DATA_HOME") or Path.home() / ".local/share")
    prefix = Path(os.environ.get("STYLEATLAS_PREFIX") or data / "styleatlas")
    prefix.parent.mkdir(parents=True, exist_ok=True)
    prefix.mkdir(mode=0o700, exist_ok=True)
    (prefix / "drive_c/ProgramData/Halvorn" / HOST).mkdir(parents=True, exist_ok=True)


def read(path):
    with open(path, newline="", encoding="utf-8") as file:
        rows = list(csv.DictReader(file))
    days = [datetime.date.fromisoformat(row["Date"]) for row in rows]
    return days, {name: [float(row[name] or "nan") for row in rows] for name in QUANTITIES}


def draw(panels, files) -> None:
    """Draws all curves in their styles of this moment."""
    for axes, (name, (title, key)) in zip(panels, QUANTITIES.items()):
        axes.clear()
        axes.set_ylabel(title)
        for column, (days, values) in enumerate(files):
            style = styleatlas.style_of(column, key) or styleatlas.Style()
            axes.plot(days, values[name], label=f"{days[0]:%B}", **style.matplotlib())
    panels[0].legend(loc="upper left", bbox_to_anchor=(1, 1))


def main() -> None:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--picture", metavar="FILE", help="write a picture instead of showing a window")
    parser.add_argument("files", metavar="FILE.csv", nargs="+")
    options = parser.parse_args()

    files = [read(path) for path in options.files]
    figure, panels = plt.subplots(len(QUANTITIES), sharex=True, figsize=(11, 8), layout="constrained")
    make_layout_folder()
    styleatlas.set_application(HOST)
    draw(panels, files)
    if options.picture:
        figure.savefig(options.picture, dpi=96)
        return

    def edit(_event) -> None:
        if styleatlas.edit() is styleatlas.EditResult.OK:
            draw(panels, files)
            figure.canvas.draw_idle()

    button = Button(figure.add_axes((0.926, 0.86, 0.068, 0.04)), "Styles...")
    button.on_clicked(edit)
    plt.show()


if __name__ == "__main__":
    main()
