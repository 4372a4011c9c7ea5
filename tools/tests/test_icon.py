"""The icon that is kept with the sources is the one that the drawing gives."""

import importlib
import pathlib
import sys
import tempfile
import unittest

from PIL import Image, ImageChops

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(ROOT / "tools"))
make_icon = importlib.import_module("make_icon")
NEARLY = 24  # of 255: releases of the renderer differ at the edges


def images(path):
    """Its images by their sizes, over grey: what is transparent has no colour to compare."""
    with Image.open(path) as icon:
        found = {size: icon.ico.getimage(size).convert("RGBA") for size in icon.info["sizes"]}
    return {size: Image.alpha_composite(Image.new("RGBA", size, "grey"), image) for size, image in found.items()}


class Icon(unittest.TestCase):
    def test_the_kept_icon_is_the_drawing(self):
        with tempfile.TemporaryDirectory() as folder:
            made = pathlib.Path(folder) / "made.ico"
            make_icon.make_icon(made)
            drawn = images(made)
        kept = images(make_icon.PACKAGING / "pointalk.ico")
        self.assertEqual(set(kept), {(size, size) for size in make_icon.SIZES})
        self.assertEqual(set(kept), set(drawn))
        for size, image in kept.items():
            with self.subTest(size):
                difference = ImageChops.difference(image, drawn[size]).getextrema()
                self.assertLessEqual(max(high for _, high in difference), NEARLY)
