"""Proves that a machine without 32-bit Wine is told what to install, and that files of tests can be chosen."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

TOOLS = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(TOOLS))

from wine_32_bits import INSTALL, what_is_missing  # noqa: E402


class WhereWineRunsThem(unittest.TestCase):
    def test_a_machine_without_and_one_with_it(self):
        with tempfile.TemporaryDirectory() as root:
            wine = pathlib.Path(root, "usr/lib/i386-linux-gnu/wine/i386-windows")
            wine.mkdir(parents=True)
            self.assertIn(INSTALL, what_is_missing(root))
            (wine / "ntdll.dll").touch()
            self.assertIsNone(what_is_missing(root))


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
