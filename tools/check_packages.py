#!/usr/bin/env python3
"""Checks the packages that tools/make_packages.py makes of release programs: it makes them twice, as two machines would. What is
written about them is checked by tools/check_manifests.py.

    tools/check_packages.py EXE..."""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time
import zipfile

import check_manifests
from checking import arguments, report
from exe_header import exe_header
from make_packages import contents, describe_packages, make_packages

SAME = "Two machines make the same bytes."
HOLDS = "Each package holds the program, the guide and the settings to start with."
RUNS = "An installer runs where its program does."
PAUSE = 2.1  # seconds; the times in a zip go by twos


def packages_of(exes, folder, zone, mask):
    """The packages of each program as a machine with that time zone and those habits makes them in that folder, and what is
    written about all of them."""
    os.umask(mask)
    os.environ["TZ"] = zone
    time.tzset()
    folder.mkdir(parents=True)
    packages = [make_packages(folder, pathlib.Path(shutil.copyfile(exe, folder / "Pointalk.exe"))) for exe in exes]
    return packages, describe_packages(folder, packages)


def in_zip(path):
    """What a zip holds, by name, the folder that all of it lies in left out."""
    with zipfile.ZipFile(path) as package:
        return {name.partition("/")[2]: package.read(name) for name in package.namelist()}


def in_installer(path, folder):
    """What an installer holds, by name; its uninstaller is only made on the user's machine."""
    unpacker = shutil.which("7zz") or "7z"  # Debian 12's 7zip has the one name, Debian 13's the other
    subprocess.run([unpacker, "x", "-y", f"-o{folder}", path], check=True, stdin=subprocess.DEVNULL,
                   stdout=subprocess.DEVNULL)
    return {file.relative_to(folder).as_posix(): file.read_bytes() for file in folder.rglob("*")
            if file.is_file() and file.name != "Uninstall.exe"}


def check(exes, folder, rules):
    """Lists what is wrong with the packages of the programs."""
    here, texts = packages_of(exes, folder / "one", "UTC", 0o022)
    time.sleep(PAUSE)
    there, other_texts = packages_of(exes, folder / "another" / "place", "Asia/Kolkata", 0o077)
    for file, other in zip([*sum(here, ()), *texts], [*sum(there, ()), *other_texts]):
        if file.read_bytes() != other.read_bytes():
            rules[SAME].append(f"{file.name} differs")
    check_manifests.check(folder / "one", rules)
    for exe, (package, installer) in zip(exes, here):
        if in_zip(package) != contents(exe):
            rules[HOLDS].append(f"{package.name} holds {sorted(in_zip(package))}")
        installed = in_installer(installer, folder / installer.stem)
        if installed != contents(exe):
            rules[HOLDS].append(f"{installer.name} holds {sorted(installed)}")
        if exe_header(installer.read_bytes()).machine != exe_header(exe.read_bytes()).machine:
            rules[RUNS].append(f"{installer.name} runs elsewhere than its program")


def main():
    exes = [pathlib.Path(name) for name in arguments(__doc__, exes="release programs").exes]
    if not exes:
        sys.exit("name the programs")
    rules = {SAME: [], HOLDS: [], RUNS: [], **{rule: [] for rule in check_manifests.RULES}}
    with tempfile.TemporaryDirectory() as folder:
        try:
            check(exes, pathlib.Path(folder), rules)
        except (OSError, ValueError, subprocess.CalledProcessError) as error:
            for breaches in rules.values():
                breaches.append(str(error))
    report(rules)


if __name__ == "__main__":
    main()
