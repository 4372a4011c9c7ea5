"""The table and the plots that tools/draw_figures.py makes of a benchmark's report."""

import json
import pathlib
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

TOOL = pathlib.Path(__file__).resolve().parent.parent / "draw_figures.py"
GROWTH = {"DescribingAmongWindows": "100", "DescribingALongList": "1000", "RewritingForTheEar": "10"}


def runs(name, *times):
    return [{"run_name": name, "run_type": "iteration", "cpu_time": time} for time in times]


class Figures(unittest.TestCase):
    def test_a_report(self):
        benchmarks = [*runs("Resting/calls:0", 30, 20), *runs("Resting/calls:1", 25), *runs("Resting/calls:11", 125),
                      *runs("Moving/calls:0", 400), *runs("Moving/calls:1", 500), *runs("Moving/calls:11", 1500),
                      {"run_name": "Resting/calls:0", "run_type": "aggregate", "cpu_time": 1}]
        for name, largest in GROWTH.items():
            benchmarks += [*runs(f"{name}/10", 500), *runs(f"{name}/{largest}", 700)]
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            (folder / "report.json").write_text(json.dumps({"benchmarks": benchmarks}))
            run = subprocess.run([sys.executable, TOOL, folder / "report.json", folder / "plots"], stdin=subprocess.DEVNULL,
                                 stdout=subprocess.PIPE, text=True, timeout=600, check=True)
            drawn = {path.name: xml.etree.ElementTree.parse(path) for path in (folder / "plots").iterdir()}
        self.assertIn("| Resting | 1 | 2.0 |", run.stdout)
        self.assertIn("| Moving | 20 | 4.0 |", run.stdout)
        self.assertEqual(sorted(drawn), ["list-items.svg", "text-length.svg", "windows.svg"])
        texts = [element.text for element in drawn["windows.svg"].iter("{http://www.w3.org/2000/svg}text")]
        self.assertIn("windows on the desktop", texts)


if __name__ == "__main__":
    unittest.main()
