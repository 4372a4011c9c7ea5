"""Proves that the check of a release program finds what it is for, in small programs."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

TOOLS = pathlib.Path(__file__).resolve().parent.parent
CALLS = """#include <windows.h>
int main() {
  POINT place;
  GetCursorPos(&place);
  return WindowFromPoint(place) != nullptr && SuspendThread(GetCurrentThread()) != 0;
}
"""


class Exe(unittest.TestCase):
    def setUp(self):
        self.exe = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory())) / "program.exe"

    def link(self, source, *options, machine="x86_64"):
        subprocess.run([f"{machine}-w64-mingw32-g++-posix", "-x", "c++", "-", "-o", self.exe, *options], input=source,
                       text=True, check=True, timeout=600)

    def check(self):
        run = subprocess.run([sys.executable, TOOLS / "check_exe.py", self.exe], stdin=subprocess.DEVNULL,
                             stdout=subprocess.PIPE, text=True, timeout=600)
        return run.stdout

    def test_a_bare_program(self):
        self.link("int main() {}\n", "-static")
        output = self.check()
        self.assertIn("opens a console", output)
        for lack in ("per-monitor DPI awareness", "common controls", "asInvoker", "a version", "an icon"):
            self.assertIn(f"lacks {lack}", output)
        self.assertIn("ok: No DLL but the system's.", output)
        self.assertIn("ok: At most 1 MB.", output)
        self.assertIn("ok: Its protection.", output)
        self.assertIn("ok: In 32 bits, addresses below 2 GB.", output)

    def test_a_library_beside_it(self):
        self.link("#include <thread>\nint main() { std::thread([] {}).join(); }\n")
        self.assertIn("needs libstdc++-6.dll", self.check())

    def test_a_large_program(self):
        self.link("int table[400000] = {1};\nint main() { return table[1]; }\n", "-static")
        self.assertIn("FAILED: At most 1 MB.", self.check())

    def test_a_program_without_protection(self):
        self.link("int main() {}\n", "-static", "-Wl,--disable-dynamicbase,--disable-nxcompat,--disable-high-entropy-va")
        output = self.check()
        for lack in ("DYNAMIC_BASE", "NX_COMPAT", "HIGH_ENTROPY_VA"):
            self.assertIn(f"lacks {lack}", output)

    def test_calls_that_are_forbidden(self):
        """Those of injected code, and those that do not count in the screen's pixels on every Windows."""
        self.link(CALLS, "-static")
        output = self.check()
        for call in ("SuspendThread", "GetCursorPos", "WindowFromPoint"):
            self.assertIn(f"imports {call}\n", output)

    def test_a_program_of_32_bits_with_large_addresses(self):
        self.link("int main() {}\n", "-static", "-Wl,--large-address-aware", machine="i686")
        self.assertIn("is large address aware", self.check())

    def test_a_program_that_is_another_in_each_build(self):
        self.link(f'#include <cstdio>\nint main() {{ std::puts("{TOOLS.parent}/main.cpp"); }}\n', "-static")
        output = self.check()
        self.assertIn("tells when it was built", output)
        self.assertIn("tells where it was built", output)

    def test_no_program(self):
        self.assertTrue(self.check().endswith("0 passed, 9 failed\n"))


if __name__ == "__main__":
    unittest.main()
