"""Proves what ./run and ./test say and pass on, in a folder where what they call does no work."""

import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent


class Command(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        for name in ("run", "test", "tools/setup.sh"):
            self.folder.joinpath(name).parent.mkdir(exist_ok=True)
            shutil.copy(ROOT / name, self.folder / name)
        self.program("bin/dpkg-query", "echo installed")
        self.program("bin/cmake", "[ ! -e broken ]")
        self.program("tools/make_packages.py", "mkdir packages")
        for half in ("windows", "linux"):
            self.file(f"tours/{half}/tour.py", f"print('the tour for {half}')")
        self.file("tools/run_tests.py", "import sys; print('steps:', *sys.argv[1:])")

    def file(self, name, text):
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")
        return path

    def program(self, name, body):
        self.file(name, f"#!/bin/sh\n{body}\n").chmod(0o755)

    def call(self, *command):
        """What it prints, with every number of seconds as N."""
        environment = {**os.environ, "PATH": f"{self.folder}/bin:{os.environ['PATH']}", "DISPLAY": ""}
        run = subprocess.run(command, cwd=self.folder, env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                             stderr=subprocess.DEVNULL, text=True, check=False, timeout=600)
        self.status = run.returncode
        return re.sub(r"\(\d+ s\)", "(N s)", run.stdout).splitlines()


class Run(Command):
    def test_each_step_of_the_tour_says_how_long_it_took(self):
        self.assertEqual(self.call("./run"), [
            "No display was found.", "Building for mingw-x86_64...", "Built for mingw-x86_64 (N s).", "Building for linux...",
            "Built for linux (N s).", "The tour of the program for Windows begins, of about a minute and a half.",
            "the tour for windows", "The tour of the program for Windows is over (N s).",
            "The tour of the program for Linux begins, of about a minute and a half.", "the tour for linux",
            "The tour of the program for Linux is over (N s)."])
        self.assertEqual(self.status, 0)

    def test_each_step_of_the_packages_says_how_long_it_took(self):
        self.assertEqual(self.call("./run", "--package"), [
            "Building for mingw-x86_64...", "Built for mingw-x86_64 (N s).", "Building for mingw-i686...",
            "Built for mingw-i686 (N s).", "Building for linux...", "Built for linux (N s).", "Making the packages...",
            "Made the packages (N s)."])

    def test_half_a_tour_that_misses_something(self):
        self.file("tours/windows/tour.py", "raise SystemExit(1)")
        self.assertEqual(self.call("./run")[-1], "The tour of the program for Linux is over (N s).")
        self.assertEqual(self.status, 1)

    def test_a_build_that_fails(self):
        self.file("broken", "")
        self.assertEqual(self.call("./run"), ["No display was found.", "Building for mingw-x86_64..."])
        self.assertEqual(self.status, 1)


class Test(Command):
    def groups(self):
        return (self.folder / "groups").read_text(encoding="utf-8").split()

    def test_a_32_bit_wine_may_be_asked_for_anywhere(self):
        self.file("tools/setup.sh", "pointalk_setup() { echo \"$@\" >groups; }; pointalk_add_i386() { :; }")
        for words, steps, groups in (((), "", ["test"]), (("wine",), " wine", ["test"]),
                                     (("--with-32-bit", "wine"), " wine", ["test", "wine32"]),
                                     (("prefix", "--with-32-bit", "wine"), " prefix wine", ["test", "wine32"]),
                                     (("prefix", "--with-32-bit"), " prefix", ["test", "wine32"])):
            with self.subTest(words):
                self.assertEqual(self.call("./test", *words), [f"steps:{steps}"])
                self.assertEqual(self.groups(), groups)


if __name__ == "__main__":
    unittest.main()
