"""A tick that describes costs little more than the platform calls that it cannot do without, and a short wait is as long as it
says. By command only, on a machine that does nothing else: POINTALK_FIGURES=1 python3 -m unittest -v test_describing_cost, in
this folder."""

import json
import os
import shutil
import unittest

from harness import BUILD, Desktop

MOST = 1.05  # times the bare calls
PLACES = {"button": "ok", "list": "details", "edit": "field"}
WAIT = 20    # milliseconds that a wait is to last


@unittest.skipUnless(os.environ.get("POINTALK_FIGURES"), "POINTALK_FIGURES is not set")
class DescribingCost(unittest.TestCase):
    def measure(self, program, *arguments):
        shutil.copy(BUILD / program, self.pointalk.folder)
        printed = self.desktop.run("wine", self.pointalk.folder / program, *arguments, seconds=300, cwd=self.pointalk.folder)
        print(printed)
        return [json.loads(line) for line in printed.splitlines()]

    def setUp(self):
        self.desktop = self.enterContext(Desktop())
        self.target = self.enterContext(self.desktop.target("controls", "texts"))
        self.pointalk = self.enterContext(self.desktop.pointalk())

    def place(self, name):
        return [str(number) for number in self.target.centre(name)]

    def test_a_describing_tick_beside_the_bare_calls(self):
        places = [word for kind, name in PLACES.items() for word in (kind, *self.place(name))]
        measured = self.measure("describing_cost.exe", *places)
        self.assertEqual([row["over"] for row in measured], list(PLACES))
        for row in measured:
            with self.subTest(row["over"]):
                self.assertLessEqual(row["ratio"], MOST)

    def test_a_short_wait_is_as_long_as_it_says(self):
        measured = {row["what"]: row for row in self.measure("seam_cost.exe", *self.place("ok"))}
        self.assertAlmostEqual(measured["wait of 20 ms"]["median"] / 1e6, WAIT, delta=1)


if __name__ == "__main__":
    unittest.main()
