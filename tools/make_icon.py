#!/usr/bin/env python3
"""Makes packaging/pointalk.ico from the drawing beside it, packaging/pointalk.svg.

    tools/make_icon.py [FILE]

It needs rsvg-convert (package librsvg2-bin) and icotool (package icoutils). The icon is kept with the sources, so that
building the program needs neither."""

import pathlib
import subprocess
import sys
import tempfile

PACKAGING = pathlib.Path(__file__).resolve().parent.parent / "packaging"
SIZES = (16, 32, 48)  # pixels


def make_icon(target):
    with tempfile.TemporaryDirectory() as folder:
        images = [pathlib.Path(folder) / f"{size}.png" for size in SIZES]
        for size, image in zip(SIZES, images):
            subprocess.run(["rsvg-convert", "-w", str(size), "-h", str(size), "-o", image, PACKAGING / "pointalk.svg"],
                           check=True)
        subprocess.run(["icotool", "--create", "--output", target, *images], check=True)


if __name__ == "__main__":
    make_icon(sys.argv[1] if len(sys.argv) > 1 else PACKAGING / "pointalk.ico")
