#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Draws how the costs of operations grow, from what growth_bench wrote in JSON.

Usage: plot_growth.py RESULTS.json OUTPUT.svg

Both axes are logarithmic: sizes of 1, 10 and 100, and time as a multiple of that of size 1. The
dashed line is linear growth.
"""
import json
import math
import pathlib
import sys

SIZES = (1, 10, 100)
PANEL, GAP, COLUMNS = 150, 50, 5


def read(path):
    """{work: {size: nanoseconds}}"""
    works = {}
    for entry in json.loads(pathlib.Path(path).read_text())["benchmarks"]:
        if entry.get("aggregate_name", "median") == "median":
            work, size, _ = entry["run_name"].split("|")
            works.setdefault(work.removeprefix("growth of "), {})[int(size)] = entry["real_time"]
    return works


def place(size, ratio):
    """Inside a panel: four decades up, for growth as the square."""
    return PANEL * math.log10(size) / 2, PANEL - PANEL * math.log10(max(ratio, 0.1)) / 4


def polyline(points, style):
    text = " ".join(f"{x:.1f},{y:.1f}" for x, y in points)
    return f'<polyline points="{text}" fill="none" {style}/>'


def panel(index, work, times):
    left = GAP + index % COLUMNS * (PANEL + GAP)
    top = GAP + index // COLUMNS * (PANEL + 2 * GAP)
    ratios = {size: times[size] / times[1] for size in SIZES}
    labels = "".join(
        f'<text x="{place(size, 1)[0]:.0f}" y="{PANEL + 15}" text-anchor="middle">{size}</text>'
        for size in SIZES
    )
    return "\n".join([
        f'<g transform="translate({left},{top})">',
        f'<rect width="{PANEL}" height="{PANEL}" fill="none" stroke="#999"/>',
        f'<text x="0" y="-8" font-weight="bold">{work}</text>',
        polyline([place(size, size) for size in SIZES], 'stroke="#999" stroke-dasharray="4"'),
        polyline([place(size, ratios[size]) for size in SIZES], 'stroke="#06c" stroke-width="2"'),
        labels,
        f'<text x="{PANEL - 4}" y="{PANEL - 6}" text-anchor="end">x {ratios[100]:.0f}</text>',
        "</g>",
    ])


def main():
    works = read(sys.argv[1])
    rows = -(-len(works) // COLUMNS)
    width = GAP + COLUMNS * (PANEL + GAP)
    height = GAP + rows * (PANEL + 2 * GAP)
    panels = [panel(i, work, times) for i, (work, times) in enumerate(works.items())]
    pathlib.Path(sys.argv[2]).write_text("\n".join([
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}"',
        ' font-family="sans-serif" font-size="12">',
        '<rect width="100%" height="100%" fill="#fff"/>',
        *panels,
        "</svg>",
        "",
    ]))


if __name__ == "__main__":
    main()
