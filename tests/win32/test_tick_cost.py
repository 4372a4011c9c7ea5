"""A tick's own work is small beside the platform calls that it makes. Measured as shares of the same run."""

import json
import shutil
import unittest

from harness import BUILD, Desktop

LARGEST_SHARE = 0.01
PLACES = ("ok", "field", "textbox", "rich", "list", "details", "tree", "combo")


class TickCost(unittest.TestCase):
    def test_own_work_is_under_a_hundredth_of_the_platform_calls(self):
        with Desktop() as desktop, desktop.target("controls", "texts") as target, desktop.pointalk() as pointalk:
            shutil.copy(BUILD / "tick_cost.exe", pointalk.folder)
            places = [str(word) for name in PLACES for word in (name, *target.centre(name))]
            printed = desktop.run("wine", pointalk.folder / "tick_cost.exe", *places, seconds=180, cwd=pointalk.folder)
        measured = [json.loads(line) for line in printed.splitlines()]
        self.assertEqual(len(measured), len(PLACES) + 1)
        for tick in measured:
            with self.subTest(tick["tick"]):
                self.assertGreater(tick["platform"], 0)
                self.assertLess(tick["own"] / tick["platform"], LARGEST_SHARE, tick)


if __name__ == "__main__":
    unittest.main()
