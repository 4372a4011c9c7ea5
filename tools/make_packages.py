#!/usr/bin/env python3
"""Makes the packages for users: for each program a zip to unpack anywhere and an installer.

    tools/make_packages.py FOLDER Pointalk.exe...

The same programs give the same bytes on every machine and in every folder. The files in a zip bear the time that
SOURCE_DATE_EPOCH tells, else that of the last commit, else the earliest that a zip can tell. It needs makensis."""

import argparse
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import time
import zipfile

from exe_header import exe_header

ROOT = pathlib.Path(__file__).resolve().parent.parent
EARLIEST = 315532800  # 1980, seconds
BITS = {"x86_64": "64-bit", "i686": "32-bit"}  # as a listener knows them
STUBS = {"x86_64": "amd64", "i686": "x86"}


def version():
    return re.search(r"^project\(Pointalk VERSION ([\d.]+)", (ROOT / "CMakeLists.txt").read_text(), re.M).group(1)


def contents(exe):
    """What a package holds, by name."""
    return {"Pointalk.exe": exe.read_bytes(), "PTK.ini": (ROOT / "packaging" / "PTK.ini").read_bytes(),
            "guide.html": (ROOT / "docs" / "guide.html").read_bytes()}


def source_time():
    """When the sources were last changed, in seconds."""
    told = os.environ.get("SOURCE_DATE_EPOCH")
    if not told:
        told = subprocess.run(["git", "-c", "safe.directory=*", "log", "-1", "--format=%ct"], cwd=ROOT, check=False,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True).stdout.strip()
    return max(int(told or 0), EARLIEST)


def make_zip(path, files):
    """A folder of its own for each version, so that a newer one never lies over the user's settings."""
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as package:
        for name in sorted(files):
            entry = zipfile.ZipInfo(f"Pointalk-{version()}/{name}", time.gmtime(source_time())[:6])
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = 0o100644 << 16
            package.writestr(entry, files[name])


def make_installer(path, files, machine):
    with tempfile.TemporaryDirectory() as folder:
        for name, data in files.items():
            (pathlib.Path(folder) / name).write_bytes(data)
        definitions = {"ARCHITECTURE": STUBS[machine], "VERSION": version(), "FOLDER": folder, "OUTPUT": path.resolve(),
                       "KILOBYTES": sum(map(len, files.values())) // 1024}
        subprocess.run(["makensis", "-V2", "-WX", *(f"-D{name}={value}" for name, value in definitions.items()),
                        ROOT / "packaging" / "pointalk.nsi"], check=True, stdin=subprocess.DEVNULL)


def make_packages(folder, exe):
    """Returns the paths of the zip and of the installer."""
    files = contents(exe)
    machine = exe_header(files["Pointalk.exe"]).machine
    folder.mkdir(parents=True, exist_ok=True)
    name = f"Pointalk-{version()}-{BITS[machine]}"
    package, installer = folder / f"{name}.zip", folder / f"{name}-setup.exe"
    make_zip(package, files)
    make_installer(installer, files, machine)
    return package, installer


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("exe", type=pathlib.Path, nargs="+")
    given = parser.parse_args()
    for exe in given.exe:
        try:
            print(*make_packages(given.folder, exe), sep="\n")
        except (OSError, ValueError, subprocess.CalledProcessError) as error:
            sys.exit(f"{exe}: {error}")


if __name__ == "__main__":
    main()
