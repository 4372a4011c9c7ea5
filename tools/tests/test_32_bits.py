"""Proves that what needs programs of 32 bits is counted as skipped where Wine runs none, and that files can be chosen."""

import contextlib
import io
import pathlib
import subprocess
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
            self.assertIsNone(what_is_missing(root))

    def test_a_step_that_lacks_it_is_counted_as_skipped(self):
        tally, printed = run_tests.Tally(), io.StringIO()
        step = run_tests.Step("step", "false", seconds=1, skipped=what_is_missing("/nowhere"))
        with contextlib.redirect_stdout(printed):
            tally.run([step])
        self.assertEqual((tally.passed, tally.failed, tally.skipped), (0, 0, 1))
        self.assertIn(INSTALL, printed.getvalue())


class ChosenFiles(unittest.TestCase):
    def test_only_files_that_are_named_run(self):
        with tempfile.TemporaryDirectory() as folder:
            for name in ("one", "two"):
                pathlib.Path(folder, f"test_{name}.py").write_text(
                    f"import unittest\nclass Case(unittest.TestCase):\n    def test_{name}(self):\n        pass\n")
            def run(*names):
                return subprocess.run([sys.executable, TOOLS / "run_unittests.py", folder, *names], stdin=subprocess.DEVNULL,
                                      stdout=subprocess.PIPE, text=True, timeout=60).stdout.splitlines()
            self.assertEqual(run()[-1], "2 passed, 0 failed")
            self.assertEqual(run("test_two")[-1], "1 passed, 0 failed")
            self.assertEqual(run("test_two", "test_three")[-1], "1 passed, 1 failed")


if __name__ == "__main__":
    unittest.main()
