#!/usr/bin/env python3
"""Draws the results of scripts/bench.sh as bars: bench_picture.py results.json > picture.svg

Each measure stands above its floor, both in the row's own scale, with a mark where the target
lies when it is a multiple of the floor.
"""

import json
import sys
from xml.sax.saxutils import escape

LABELS = 330
BARS = 420
FIGURES = 190
TOP = 56
DARK = "#222222"
FAINT = "#667788"
COLOURS = {"measure": "#2f6db5", "floor": "#b9c4d0", "target": "#c0392b"}


def time_text(nanoseconds):
    for unit in ("ns", "µs", "ms"):
        if nanoseconds < 1000:
            return f"{nanoseconds:.3g} {unit}"
        nanoseconds /= 1000
    return f"{nanoseconds:.3g} s"


def text(x, y, content, size=12, anchor="start", colour=DARK):
    return (f'<text x="{x}" y="{y}" font-size="{size}" text-anchor="{anchor}" '
            f'fill="{colour}">{escape(content)}</text>')


def bar(y, width, kind):
    return f'<rect x="{LABELS}" y="{y}" width="{width:.1f}" height="14" fill="{COLOURS[kind]}"/>'


def time_row(y, entry):
    measure, floor, limit = entry["measure"], entry["floor"], entry["ratioLimit"]
    scale = BARS / max(measure["lowNs"], floor["lowNs"] * max(limit, 1))
    yield text(LABELS - 8, y + 12, measure["name"], anchor="end")
    yield text(LABELS - 8, y + 28, floor["name"], size=11, anchor="end", colour=FAINT)
    yield bar(y, measure["lowNs"] * scale, "measure")
    yield bar(y + 16, floor["lowNs"] * scale, "floor")
    if limit:
        x = LABELS + floor["lowNs"] * limit * scale
        yield (f'<line x1="{x:.1f}" y1="{y - 3}" x2="{x:.1f}" y2="{y + 33}" '
               f'stroke="{COLOURS["target"]}" stroke-width="2"/>')
    x = LABELS + BARS + 10
    yield text(x, y + 12, f'{time_text(measure["lowNs"])}, {entry["ratio"]:.2f} of its floor')
    yield text(x, y + 28, time_text(floor["lowNs"]), size=11, colour=FAINT)


def series_rows(y, series):
    yield text(20, y + 12, f'{series["name"]}: {series["unit"]}')
    largest = max(point["value"] for point in series["points"])
    for index, point in enumerate(series["points"]):
        top = y + 18 + 18 * index
        yield text(LABELS - 8, top + 12, point["name"], size=11, anchor="end", colour=FAINT)
        yield bar(top, BARS * point["value"] / largest, "measure")
        yield text(LABELS + BARS + 10, top + 12, f'{point["value"]:,.0f}', size=11)


def picture(results):
    y = TOP
    body = []
    for entry in results["rows"]:
        body += time_row(y, entry)
        y += 46
    for series in results["series"]:
        body += series_rows(y, series)
        y += 36 + 18 * len(series["points"])
    width = LABELS + BARS + FIGURES
    yield (f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{y}" '
           f'viewBox="0 0 {width} {y}" font-family="sans-serif">')
    yield f'<rect width="{width}" height="{y}" fill="white"/>'
    yield text(20, 24, "What the library takes (blue) and what the system itself takes for the "
               "same (grey)", size=15)
    yield text(20, 42, "Shortest times of many rounds. The red mark is the target. Each row has a "
               "scale of its own.", size=11, colour=FAINT)
    yield from body
    yield "</svg>"


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        results = json.load(file)
    print("\n".join(picture(results)))


if __name__ == "__main__":
    main()
