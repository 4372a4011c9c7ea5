"""Proves that tools/setup.sh asks for what is missing of every group that it is told."""

import os
import pathlib
import subprocess
import tempfile
import unittest

TOOLS = pathlib.Path(__file__).resolve().parent.parent
INSTALLED = "first"
UNKNOWN = "older"  # to apt


class Missing(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.program("dpkg-query", f'[ "$3" = {INSTALLED} ] && echo installed')
        self.program("apt-cache", f'[ "$2" = {UNKNOWN} ] && echo "Candidate: (none)" || echo "Candidate: 1"')

    def program(self, name, body):
        path = self.folder / name
        path.write_text(f"#!/bin/sh\n{body}\n", encoding="utf-8")
        path.chmod(0o755)

    def missing(self, *groups):
        script = (f". '{TOOLS}/setup.sh'; POINTALK_some=(first second 'older|newer'); POINTALK_more=(third second); "
                  f"pointalk_missing {' '.join(groups)}")
        run = subprocess.run(["bash", "-uc", script], env={**os.environ, "PATH": f"{self.folder}:{os.environ['PATH']}"},
                             stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, text=True, check=True, timeout=600)
        return run.stdout.split()

    def test_of_a_group(self):
        self.assertEqual(self.missing("some"), ["newer", "second"])

    def test_of_two_groups(self):
        self.assertEqual(self.missing("some", "more"), ["newer", "second", "third"])
        self.assertEqual(self.missing("more", "some"), ["newer", "second", "third"])


if __name__ == "__main__":
    unittest.main()
