#!/usr/bin/env python3
"""Turns what pointalk_bench measured into a table and into plots of the growth.

    pointalk_bench --benchmark_repetitions=9 --benchmark_out=FILE --benchmark_out_format=json
    tools/draw_figures.py FILE [FOLDER]

Prints the table as docs/figures.md has it, and writes the plots to FOLDER, docs/figures unless given. Of the repetitions the
fastest counts: what takes longer was disturbed."""

import json
import math
import pathlib
import sys

PLOTS = {
    "windows": ("DescribingAmongWindows", "windows on the desktop", "ns for a describing tick"),
    "list-items": ("DescribingALongList", "items in the list box", "ns for a describing tick"),
    "text-length": ("RewritingForTheEar", "characters in the text", "ns for rewriting it for the ear"),
}
WIDTH, HEIGHT = 560, 320
LEFT, RIGHT, TOP, BOTTOM = 80, 20, 20, 60


def fastest(report):
    """Nanoseconds by the benchmark's name."""
    times = {}
    for run in report["benchmarks"]:
        if run["run_type"] == "iteration":
            times.setdefault(run["run_name"], []).append(run["cpu_time"])
    return {name: min(runs) for name, runs in times.items()}


def rows(times):
    """What is measured with and without repeated calls: name, whole, the platform calls of it."""
    for name in times:
        if name.endswith("/calls:0"):
            stem = name[:-1]
            yield name[:-len("/calls:0")], times[name], (times[stem + "11"] - times[stem + "1"]) / 10


def table(times):
    rest = times["Resting/calls:0"]
    lines = ["| what | times a resting tick | times its own platform calls |", "|---|---|---|"]
    lines += [f"| {name} | {whole / rest:,.0f} | {whole / calls:.1f} |" for name, whole, calls in rows(times)]
    return "\n".join(lines)


def decades(values):
    return range(math.floor(math.log10(min(values))), math.ceil(math.log10(max(values))) + 1)


def plot(points, across, up):
    """An SVG of the points with both axes logarithmic."""
    xs, ys = decades([x for x, _ in points]), decades([y for _, y in points])

    def place(value, axis, begin, end):
        return begin + (math.log10(value) - axis[0]) / max(axis[-1] - axis[0], 1) * (end - begin)

    def at(x, y):
        return place(x, xs, LEFT, WIDTH - RIGHT), place(y, ys, HEIGHT - BOTTOM, TOP)
    parts = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {HEIGHT}" font-family="sans-serif" font-size="12">',
             f"<title>{up}, by {across}</title>", f'<rect width="{WIDTH}" height="{HEIGHT}" fill="white"/>']
    for power in xs:
        x, y = at(10.0 ** power, 10.0 ** ys[0])
        parts.append(f'<line x1="{x:.1f}" y1="{TOP}" x2="{x:.1f}" y2="{y:.1f}" stroke="#ddd"/>'
                     f'<text x="{x:.1f}" y="{y + 18:.1f}" text-anchor="middle">{10 ** power:,}</text>')
    for power in ys:
        x, y = at(10.0 ** xs[0], 10.0 ** power)
        parts.append(f'<line x1="{x:.1f}" y1="{y:.1f}" x2="{WIDTH - RIGHT}" y2="{y:.1f}" stroke="#ddd"/>'
                     f'<text x="{x - 6:.1f}" y="{y + 4:.1f}" text-anchor="end">{10 ** power:,}</text>')
    line = " ".join(f"{x:.1f},{y:.1f}" for x, y in (at(*point) for point in points))
    parts.append(f'<polyline points="{line}" fill="none" stroke="#05a" stroke-width="2"/>')
    parts += [f'<circle cx="{x:.1f}" cy="{y:.1f}" r="4" fill="#05a"/>' for x, y in (at(*point) for point in points)]
    parts.append(f'<text x="{(LEFT + WIDTH - RIGHT) / 2}" y="{HEIGHT - 14}" text-anchor="middle">{across}</text>')
    parts.append(f'<text transform="translate(16 {(TOP + HEIGHT - BOTTOM) / 2}) rotate(-90)" text-anchor="middle">{up}</text>')
    return "\n".join([*parts, "</svg>", ""])


def main():
    times = fastest(json.loads(pathlib.Path(sys.argv[1]).read_text()))
    here = pathlib.Path(__file__).resolve().parent.parent
    folder = pathlib.Path(sys.argv[2]) if len(sys.argv) > 2 else here / "docs" / "figures"
    folder.mkdir(parents=True, exist_ok=True)
    for file, (name, across, up) in PLOTS.items():
        points = [(int(key.split("/")[1]), time) for key, time in times.items() if key.startswith(name + "/")]
        (folder / f"{file}.svg").write_text(plot(sorted(points), across, up))
    print(table(times))
    for name, across, _ in PLOTS.values():
        grown = [time for key, time in times.items() if key.startswith(name + "/")]
        print(f"{name}, by {across}: {', '.join(f'{time:,.0f}' for time in grown)} ns")


if __name__ == "__main__":
    main()
