"""Proves what the packages are made of, with programs that are small enough to make here."""

import pathlib
import subprocess
import sys
import tempfile
import unittest
import zipfile

TOOLS = pathlib.Path(__file__).resolve().parent.parent


class Packages(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.exe = self.folder / "program.exe"

    def link(self, target):
        subprocess.run([f"{target}-w64-mingw32-gcc-posix", "-s", "-x", "c", "-", "-o", self.exe], check=True, timeout=600,
                       input="int main(void) { return 0; }\n", text=True)

    def make(self, **environment):
        return subprocess.run([sys.executable, TOOLS / "make_packages.py", self.folder / "packages", self.exe], timeout=600,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                              env={"PATH": "/usr/bin:/bin", **environment})

    def test_the_names_tell_the_version_and_the_machine(self):
        for target, architecture in (("x86_64", "x64"), ("i686", "x86")):
            self.link(target)
            made = [pathlib.Path(line) for line in self.make().stdout.splitlines()]
            self.assertRegex(made[0].name, rf"^Pointalk-\d+\.\d+\.\d+-{architecture}\.zip$")
            self.assertRegex(made[1].name, rf"^Pointalk-\d+\.\d+\.\d+-{architecture}-setup\.exe$")
            self.assertEqual({path.is_file() for path in made}, {True})

    def test_a_zip_is_one_folder_of_its_version_with_the_told_time(self):
        self.link("x86_64")
        with zipfile.ZipFile(self.make(SOURCE_DATE_EPOCH="1700000000").stdout.splitlines()[0]) as package:
            entries = package.infolist()
        self.assertEqual([entry.filename.partition("/")[2] for entry in entries], ["PTK.ini", "Pointalk.exe", "guide.html"])
        self.assertEqual({entry.filename.partition("/")[0] for entry in entries},
                         {pathlib.Path(self.make().stdout.split()[0]).name.removesuffix("-x64.zip")})
        self.assertEqual({entry.date_time for entry in entries}, {(2023, 11, 14, 22, 13, 20)})

    def test_what_is_no_program_is_refused(self):
        self.exe.write_bytes(b"MZ" + bytes(100))
        run = self.make()
        self.assertEqual(run.returncode, 1)
        self.assertIn("not a program for Windows", run.stdout)
        self.assertFalse((self.folder / "packages").exists())

    def test_the_check_needs_its_programs(self):
        run = subprocess.run([sys.executable, TOOLS / "check_packages.py", self.exe], stdin=subprocess.DEVNULL, timeout=600,
                             stdout=subprocess.PIPE, text=True, check=False)
        self.assertEqual((run.returncode, run.stdout.splitlines()[-1]), (1, "0 passed, 7 failed"))


if __name__ == "__main__":
    unittest.main()
