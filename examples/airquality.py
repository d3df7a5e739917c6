#!/usr/bin/env python3
"""Plots files of measured data with Matplotlib, each curve in the style that the style atlas has for it.

    airquality.py [--picture FILE] FILE.csv...

The first column of a file is a date, the others are quantities of the air; one file is one file column.
"""
import argparse
import csv
import datetime

import matplotlib.pyplot as plt
import styleatlas

QUANTITIES = {
    "Ozone": ("Ozone, ppb", styleatlas.Key(10, 2, 0, 1)),
    "Solar": ("Solar radiation, langley", styleatlas.Key(11, 8, 0, 2)),
    "Wind": ("Wind speed, mph", styleatlas.Key(12, 2, 0, 3, 1)),
    "Temp": ("Temperature, °F", styleatlas.Key(20, 7, 0, 3)),
}


def main() -> None:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--picture", metavar="FILE", help="write a picture instead of showing a window")
    parser.add_argument("files", metavar="FILE.csv", nargs="+")
    options = parser.parse_args()

    styleatlas.set_application("AirLab")
    figure, panels = plt.subplots(len(QUANTITIES), sharex=True, figsize=(11, 8), layout="constrained")
    for column, path in enumerate(options.files):
        with open(path, newline="", encoding="utf-8") as file:
            rows = list(csv.DictReader(file))
        days = [datetime.date.fromisoformat(row["Date"]) for row in rows]
        for axes, (name, (title, key)) in zip(panels, QUANTITIES.items()):
            style = styleatlas.style_of(column, key) or styleatlas.Style()
            values = [float(row[name]) if row[name] else float("nan") for row in rows]
            axes.plot(days, values, label=f"{days[0]:%B}", **style.matplotlib())
            axes.set_ylabel(title)
    panels[0].legend(loc="upper left", bbox_to_anchor=(1, 1))
    if options.picture:
        figure.savefig(options.picture, dpi=96)
    else:
        plt.show()


if __name__ == "__main__":
    main()
