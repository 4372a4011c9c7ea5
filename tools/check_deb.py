#!/usr/bin/env python3
"""Checks the Debian package that tools/make_deb.py makes of pointalk: it makes it twice, as two users would.

    tools/check_deb.py PROGRAM"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

from checking import arguments, report
from make_deb import METAINFO, SHARE, make_deb

SAME = "Two users make the same bytes."
LINTIAN = "lintian finds no error and no warning."
ENTRY = "The desktop entry is valid."
METADATA = "The AppStream metadata is valid."
MANUAL = "The manual page has no mistake."
VERSION, SECONDS = "1.0.0", 1_700_000_000
PAUSE = 1.1  # seconds


def package_of(program, folder, zone, mask):
    """The package as a user with that time zone and those habits makes it in that folder."""
    os.umask(mask)
    os.environ["TZ"] = zone
    time.tzset()
    folder.mkdir(parents=True)
    return make_deb(folder, pathlib.Path(shutil.copyfile(program, folder / "program")), VERSION, SECONDS)


def complaints(*command):
    """What a checker prints that fails, or that is told to print complaints alone."""
    run = subprocess.run([str(part) for part in command], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                         stderr=subprocess.STDOUT, text=True, check=False)
    return run.stdout.splitlines() or [f"exit status {run.returncode}"] if run.returncode else []


def check(program, folder, rules):
    package = package_of(program, folder / "one", "UTC", 0o022)
    time.sleep(PAUSE)
    other = package_of(program, folder / "another" / "place", "Asia/Kolkata", 0o077)
    if package.read_bytes() != other.read_bytes():
        rules[SAME].append(f"{package.name} differs")
    rules[LINTIAN] += complaints("lintian", "--allow-root", "--fail-on", "error,warning", package)
    tree = folder / "tree"
    subprocess.run(["dpkg-deb", "--extract", package, tree], check=True, stdin=subprocess.DEVNULL)
    rules[ENTRY] += complaints("desktop-file-validate", tree / SHARE / "applications" / "pointalk.desktop")
    rules[METADATA] += complaints("appstreamcli", "validate", "--no-net", tree / SHARE / "metainfo" / METAINFO)
    rules[MANUAL] += complaints("sh", "-c", '! man --warnings -E UTF-8 -l "$0" 2>&1 >/dev/null | grep .',
                                tree / SHARE / "man" / "man1" / "pointalk.1.gz")


def main():
    programs = [pathlib.Path(name) for name in arguments(__doc__, program="the release program").program]
    if len(programs) != 1:
        sys.exit("name the program")
    rules = {SAME: [], LINTIAN: [], ENTRY: [], METADATA: [], MANUAL: []}
    with tempfile.TemporaryDirectory() as folder:
        try:
            check(programs[0], pathlib.Path(folder), rules)
        except (OSError, subprocess.CalledProcessError) as error:
            for breaches in rules.values():
                breaches.append(str(error))
    report(rules)


if __name__ == "__main__":
    main()
