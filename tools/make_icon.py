#!/usr/bin/env python3
"""Draws the program's icon, a pointer that sends out two sound waves, and writes packaging/pointalk.ico.

    tools/make_icon.py [FILE]
"""

import math
import pathlib
import struct
import sys

SIZES = (16, 32, 48)
SAMPLES = 8  # per pixel and direction

# The drawing lives in a unit square, y downwards.
POINTER = ((0.08, 0.08), (0.08, 0.80), (0.25, 0.65), (0.37, 0.93), (0.50, 0.87), (0.38, 0.60), (0.60, 0.58))
OUTLINE_WIDTH = 0.045
WAVE_CENTRE = (0.30, 0.36)
WAVE_RADII = (0.42, 0.62)
WAVE_WIDTH = 0.085
WAVE_HALF_ANGLE = math.radians(40)
WAVE_DIRECTION = math.radians(-12)

INK = (24, 32, 56)
PAPER = (255, 255, 255)
WAVE = (0, 122, 204)


def edge_distance(x, y):
    best = math.inf
    for (ax, ay), (bx, by) in zip(POINTER, POINTER[1:] + POINTER[:1]):
        dx, dy = bx - ax, by - ay
        along = max(0.0, min(1.0, ((x - ax) * dx + (y - ay) * dy) / (dx * dx + dy * dy)))
        best = min(best, math.hypot(x - ax - along * dx, y - ay - along * dy))
    return best


def inside_pointer(x, y):
    inside = False
    for (ax, ay), (bx, by) in zip(POINTER, POINTER[1:] + POINTER[:1]):
        if (ay > y) != (by > y) and x < (bx - ax) * (y - ay) / (by - ay) + ax:
            inside = not inside
    return inside


def on_wave(x, y):
    dx, dy = x - WAVE_CENTRE[0], y - WAVE_CENTRE[1]
    if abs(math.atan2(dy, dx) - WAVE_DIRECTION) > WAVE_HALF_ANGLE:
        return False
    return any(abs(math.hypot(dx, dy) - radius) <= WAVE_WIDTH / 2 for radius in WAVE_RADII)


def colour_at(x, y):
    """The colour of a point, or None where the icon is transparent."""
    if edge_distance(x, y) <= OUTLINE_WIDTH:
        return INK
    if inside_pointer(x, y):
        return PAPER
    return WAVE if on_wave(x, y) else None


def pixel(column, row, size):
    hits = []
    for i in range(SAMPLES * SAMPLES):
        x = (column + (i % SAMPLES + 0.5) / SAMPLES) / size
        y = (row + (i // SAMPLES + 0.5) / SAMPLES) / size
        colour = colour_at(x, y)
        if colour:
            hits.append(colour)
    if not hits:
        return bytes(4)
    red, green, blue = (round(sum(c[i] for c in hits) / len(hits)) for i in range(3))
    return bytes((blue, green, red, round(255 * len(hits) / SAMPLES ** 2)))


def bitmap(size):
    """One image of the file: header, rows from the bottom up, and an empty mask (the alpha channel rules)."""
    header = struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, 32, 0, 0, 0, 0, 0, 0)
    rows = b"".join(pixel(column, row, size) for row in reversed(range(size)) for column in range(size))
    return header + rows + bytes((size + 31) // 32 * 4 * size)


def icon():
    images = [bitmap(size) for size in SIZES]
    directory = struct.pack("<HHH", 0, 1, len(images))
    offset = len(directory) + 16 * len(images)
    for size, image in zip(SIZES, images):
        directory += struct.pack("<BBBBHHII", size, size, 0, 0, 1, 32, len(image), offset)
        offset += len(image)
    return directory + b"".join(images)


def main():
    here = pathlib.Path(__file__).resolve().parent
    target = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else here.parent / "packaging" / "pointalk.ico"
    target.write_bytes(icon())


if __name__ == "__main__":
    main()
