"""Proves that what needs programs of 32 bits is counted as skipped where Wine runs none."""

import contextlib
import io
import pathlib
import sys
import tempfile
import unittest

TOOLS = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(TOOLS))

import run_tests  # noqa: E402
from wine_32_bits import INSTALL, what_is_missing  # noqa: E402


class WhereWineRunsThem(unittest.TestCase):
    def test_a_machine_without_and_one_with_it(self):
        with tempfile.TemporaryDirectory() as root:
            wine = pathlib.Path(root, "usr/lib/i386-linux-gnu/wine/i386-windows")
            wine.mkdir(parents=True)
            self.assertIn(INSTALL, what_is_missing(root))
            (wine / "ntdll.dll").touch()
            self.assertEqual(what_is_missing(root), "")

    def test_a_step_that_lacks_it_is_counted_as_skipped(self):
        tally, printed = run_tests.Tally(), io.StringIO()
        step = run_tests.Step("step", "false", seconds=1, lacks=lambda: what_is_missing("/nowhere"))
        with contextlib.redirect_stdout(printed):
            tally.run([step])
        self.assertEqual((tally.passed, tally.failed, tally.skipped), (0, 0, 1))
        self.assertIn(INSTALL, printed.getvalue())


if __name__ == "__main__":
    unittest.main()
