"""Proves what the Debian package is made of, with a program that is small enough to make here."""

import gzip
import pathlib
import subprocess
import sys
import tempfile
import unittest

TOOLS = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(TOOLS))

from make_deb import architecture, make_deb  # noqa: E402

SECONDS = 1_700_000_000  # 2023-11-14, a Tuesday


class Package(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.program = self.folder / "program"

    def make(self):
        subprocess.run(["gcc", "-x", "c", "-", "-o", self.program], check=True, timeout=600,
                       input="int main(void) { return 0; }\n", text=True)
        return make_deb(self.folder / "made", self.program, "1.2.3", SECONDS)

    def tell(self, *command):
        return subprocess.run(["dpkg-deb", *command], check=True, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, text=True,
                              timeout=600, env={"PATH": "/usr/bin:/bin", "TZ": "UTC"}).stdout

    def field(self, package, name):
        return self.tell("--field", package, name).strip()

    def test_its_name_and_its_fields_tell_what_it_is(self):
        package = self.make()
        self.assertEqual(package.name, f"pointalk_1.2.3_{architecture()}.deb")
        self.assertEqual(self.field(package, "Version"), "1.2.3")
        self.assertEqual(self.field(package, "Architecture"), architecture())
        self.assertRegex(self.field(package, "Depends"), r"^libc6 \(>= [\d.]+\)$")
        self.assertNotIn("@", self.tell("--field", package).replace("support@pointalk.example", ""))

    def test_it_holds_the_program_and_what_a_desktop_shows_of_it(self):
        names = [line.split()[5] for line in self.tell("--contents", self.make()).splitlines()]
        self.assertEqual([name.removeprefix("./") for name in names if not name.endswith("/")], [
            "usr/bin/pointalk", "usr/share/applications/pointalk.desktop", "usr/share/doc/pointalk/changelog.gz",
            "usr/share/doc/pointalk/copyright", "usr/share/doc/pointalk/guide.html",
            "usr/share/icons/hicolor/scalable/apps/pointalk.svg", "usr/share/man/man1/pointalk.1.gz",
            "usr/share/metainfo/example.pointalk.pointalk.metainfo.xml"])

    def test_all_of_it_is_the_roots_and_bears_the_told_time(self):
        for line in self.tell("--contents", self.make()).splitlines():
            with self.subTest(line):
                mode, owner, _, day, clock, name = line.split()[:6]
                self.assertEqual(mode, "drwxr-xr-x" if name.endswith("/") else
                                 "-rwxr-xr-x" if name == "./usr/bin/pointalk" else "-rw-r--r--")
                self.assertEqual((owner, day, clock), ("root/root", "2023-11-14", "22:13"))

    def test_its_texts_are_filled_in(self):
        tree = self.folder / "tree"
        self.tell("--extract", self.make(), tree)
        changelog = gzip.decompress((tree / "usr/share/doc/pointalk/changelog.gz").read_bytes()).decode()
        self.assertRegex(changelog, r"^pointalk \(1\.2\.3\) ")
        self.assertIn("Tue, 14 Nov 2023 22:13:20 ", changelog)
        self.assertIn("Copyright 2023 ", (tree / "usr/share/doc/pointalk/copyright").read_text())
        metadata = next((tree / "usr/share/metainfo").iterdir()).read_text()
        self.assertIn('<release version="1.2.3" date="2023-11-14"/>', metadata)

    def test_the_sums_are_those_of_the_files(self):
        package, tree = self.make(), self.folder / "tree"
        self.tell("--raw-extract", package, tree)
        subprocess.run(["md5sum", "--check", "--strict", "--quiet", "DEBIAN/md5sums"], cwd=tree, check=True, timeout=600)
        self.assertEqual(len((tree / "DEBIAN/md5sums").read_text().splitlines()), 8)

    def test_what_is_no_program_is_refused(self):
        self.program.write_bytes(b"no program")
        with self.assertRaises(subprocess.CalledProcessError):
            make_deb(self.folder / "made", self.program, "1.2.3", SECONDS)
        self.assertEqual(list((self.folder / "made").iterdir()), [])


if __name__ == "__main__":
    unittest.main()
