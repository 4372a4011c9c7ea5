"""The control panel at the system's scales of text, as far as Wine has them."""

import os
import unittest

from harness import Desktop, Panel

SCREEN = (2400, 1800)  # at 300 % it holds what 800 x 600 do
USUAL = 96  # dots per inch at 100 %


def overlap(a, b):
    return a[0] < b[2] and b[0] < a[2] and a[1] < b[3] and b[1] < a[3]


class Scaling(unittest.TestCase):
    def test_the_panel_grows_with_the_text_and_stays_on_the_screen(self):
        heights = {}
        size = f"{SCREEN[0]}x{SCREEN[1]}"
        with Desktop(private=True, screen=size) as desktop, desktop.hand() as hand:
            desktop.import_keys(f'[HKEY_CURRENT_USER\\Software\\Wine\\Explorer\\Desktops]\n"Default"="{size}"\n')
            for percent in (100, 150, 200, 300):
                with self.subTest(percent):
                    heights[percent] = self.button_height_at(desktop, hand, percent)
        for percent, height in heights.items():
            self.assertAlmostEqual(height / heights[100], percent / 100, delta=0.15, msg=heights)

    def button_height_at(self, desktop, hand, percent):
        desktop.import_keys(f'[HKEY_CURRENT_USER\\Control Panel\\Desktop]\n"LogPixels"=dword:{USUAL * percent // 100:08x}\n')
        desktop.restart()
        hand.move(2200, 1500)
        with desktop.probe() as probe, desktop.pointalk().start(POINTALK_ESPEAK="true") as pointalk:
            pointalk.wait_ready()
            panel = Panel(probe, hand, away=(2200, 1500))
            panel.open()
            *buttons, label, picture = panel.controls()
            self.keep_picture(desktop, percent)
            return self.check_places(panel.window()["rect"], [control["rect"] for control in (*buttons, label, picture)])

    def check_places(self, window, places):
        """All within the window, the window on the screen, nothing over anything else; returns a button's height."""
        self.assertEqual(window[:2], [0, 0])
        self.assertTrue(window[2] <= SCREEN[0] and window[3] <= SCREEN[1], window)
        for number, place in enumerate(places):
            self.assertTrue(place[0] >= 0 and place[2] <= window[2] and place[3] <= window[3], (window, places))
            self.assertFalse(any(overlap(place, other) for other in places[:number]), places)
        left, top, right, bottom = places[0]
        return bottom - top

    def keep_picture(self, desktop, percent):
        """For the eye, where a folder is named for it."""
        if folder := os.environ.get("POINTALK_PICTURES"):
            desktop.screenshot(f"{folder}/panel-{percent}.png")
