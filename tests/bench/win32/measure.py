#!/usr/bin/env python3
"""Measures under Wine, over the test target's controls, and prints a table.

    tests/bench/win32/measure.py ticks       a tick's own work beside its platform calls
    tests/bench/win32/measure.py describing  a tick that describes beside the bare calls that it must make
    tests/bench/win32/measure.py seam        the delay loop, a file, an accessible object

It needs what `cmake --preset mingw-x86_64-release && cmake --build --preset mingw-x86_64-release` builds."""

import json
import pathlib
import shutil
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[3] / "wine"))

from harness import BUILD, Desktop  # noqa: E402

LONGEST = 1800  # seconds after which a program hangs
TICK_PLACES = ("ok", "field", "textbox", "rich", "list", "details", "tree", "combo")
DESCRIBING_PLACES = {"button": "ok", "list": "details", "edit": "field"}


def measured(program, places):
    """The lines of a program that is given the places, each with its name, or without one where it has none."""
    with Desktop(private=True) as desktop, desktop.target("controls", "texts") as target, desktop.pointalk() as pointalk:
        shutil.copy(BUILD / program, pointalk.folder)
        words = [str(word) for name, place in places for word in (*name, *target.centre(place))]
        printed = desktop.run("wine", pointalk.folder / program, *words, seconds=LONGEST, cwd=pointalk.folder)
    return [json.loads(line) for line in printed.splitlines()]


def ticks():
    rows = measured("tick_cost.exe", [((name,), name) for name in TICK_PLACES])
    return [("tick", "platform calls", "in them, us", "own work, us", "share, %")] + [
        (row["tick"], row["calls"], f"{row['platform'] / 1e3:.1f}", f"{row['own'] / 1e3:.2f}",
         f"{100 * row['own'] / row['platform']:.2f}") for row in rows]


def describing():
    rows = measured("describing_cost.exe", [((kind,), place) for kind, place in DESCRIBING_PLACES.items()])
    return [("over", "tick, us", "bare calls, us", "ratio of neighbours")] + [
        (row["over"], row["tick"], row["calls"], row["ratio"]) for row in rows]


def seam():
    rows = measured("seam_cost.exe", [((), "ok")])
    return [("what", "least, us", "median, us", "most, us")] + [
        (row["what"], *(f"{row[key] / 1e3:.2f}" for key in ("least", "median", "most"))) for row in rows]


TABLES = {"ticks": ticks, "describing": describing, "seam": seam}


def main():
    if len(sys.argv) != 2 or sys.argv[1] not in TABLES:
        sys.exit(__doc__)
    rows = [[str(cell) for cell in row] for row in TABLES[sys.argv[1]]()]
    widths = [max(map(len, column)) for column in zip(*rows)]
    for row in rows:
        print("  ".join(cell.ljust(width) for cell, width in zip(row, widths)).rstrip())


if __name__ == "__main__":
    main()
