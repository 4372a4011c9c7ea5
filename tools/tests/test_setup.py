"""Proves that tools/setup.sh asks for what is missing of every group that it is told, and says what it installed."""

import os
import pathlib
import subprocess
import tempfile
import unittest

TOOLS = pathlib.Path(__file__).resolve().parent.parent
INSTALLED = "first"
UNKNOWN = "older"  # to apt


class Machine(unittest.TestCase):
    """On which one package is installed, and another one is unknown."""

    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.program("dpkg-query", f'[ "$3" = {INSTALLED} ] && echo installed')
        self.program("apt-cache", f'[ "$2" = {UNKNOWN} ] && echo "Candidate: (none)" || echo "Candidate: 1"')

    def program(self, name, body):
        path = self.folder / name
        path.write_text(f"#!/bin/sh\n{body}\n", encoding="utf-8")
        path.chmod(0o755)

    def run_shell(self, command):
        script = (f". '{TOOLS}/setup.sh'; POINTALK_some=(first second 'older|newer'); POINTALK_more=(third second); "
                  f"POINTALK_judges=('older|' 'newer|'); {command}")
        return subprocess.run(["bash", "-uc", script], env={**os.environ, "PATH": f"{self.folder}:{os.environ['PATH']}"},
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, text=True, check=False, timeout=600)


class Missing(Machine):
    def missing(self, *groups):
        return self.run_shell(f"pointalk_missing {' '.join(groups)}").stdout.split()

    def test_of_a_group(self):
        self.assertEqual(self.missing("some"), ["newer", "second"])

    def test_of_two_groups(self):
        self.assertEqual(self.missing("some", "more"), ["newer", "second", "third"])
        self.assertEqual(self.missing("more", "some"), ["newer", "second", "third"])

    def test_what_the_system_has_not_got_and_nothing_replaces(self):
        self.assertEqual(self.missing("judges"), ["newer"])


class Installing(Machine):
    def install(self, status):
        """What is said where apt would install two packages, and ends so."""
        self.program("id", "echo 0")
        self.program("apt-get", f'case " $* " in *" -s "*) echo "Inst second"; echo "Inst newer";; *" install "*) exit {status};; '
                     "esac")
        return self.run_shell("pointalk_setup some")

    def test_how_many_packages_and_how_long_it_took(self):
        run = self.install(0)
        self.assertEqual(run.returncode, 0)
        self.assertRegex(run.stdout, r"(?m)^Installing 2 packages: newer second, and what they need\.\.\.\n"
                                     r"Installed 2 packages \(\d+ s\)\.$")

    def test_an_installation_that_fails(self):
        run = self.install(100)
        self.assertNotEqual(run.returncode, 0)
        self.assertNotIn("Installed", run.stdout)


if __name__ == "__main__":
    unittest.main()
