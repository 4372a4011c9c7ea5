"""Proves that the check of a release program finds what it is for, in small programs that import what Pointalk must not."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

TOOLS = pathlib.Path(__file__).resolve().parent.parent
PROGRAM = """#include <windows.h>
int main(void) {
  POINT place;
  GetCursorPos(&place);
  return WindowFromPoint(place) != 0 && SuspendThread(GetCurrentThread()) != 0;
}
"""
LARGE_ADDRESSES = "In 32 bits, addresses below 2 GB."


class Exe(unittest.TestCase):
    def found(self, machine, *options):
        """What the check prints of such a program, which lacks all else that Pointalk has as well."""
        with tempfile.TemporaryDirectory() as folder:
            exe = pathlib.Path(folder) / "program.exe"
            subprocess.run([f"{machine}-w64-mingw32-gcc-win32", "-s", *options, "-x", "c", "-", "-o", exe], check=True, timeout=60,
                           input=PROGRAM, text=True)
            run = subprocess.run([sys.executable, TOOLS / "check_exe.py", exe], stdin=subprocess.DEVNULL, timeout=60,
                                 stdout=subprocess.PIPE, text=True, check=False)
        self.assertEqual(run.returncode, 1, run.stdout)
        return run.stdout

    def test_calls_that_are_forbidden_are_found(self):
        printed = self.found("x86_64")
        for call in ("SuspendThread", "GetCursorPos", "WindowFromPoint"):
            self.assertIn(f"imports {call}\n", printed)

    def test_large_addresses_are_found_in_32_bits_alone(self):
        self.assertIn(f"FAILED: {LARGE_ADDRESSES}", self.found("i686", "-Wl,--large-address-aware"))
        self.assertIn(f"ok: {LARGE_ADDRESSES}", self.found("i686"))
        self.assertIn(f"ok: {LARGE_ADDRESSES}", self.found("x86_64"))


if __name__ == "__main__":
    unittest.main()
