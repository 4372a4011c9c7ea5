#!/usr/bin/env python3
"""Makes the packages for users: for each program for Windows a zip to unpack anywhere and an installer; for all of them the
manifests by which winget installs Pointalk; for the program for Linux one that apt installs; and SHA256SUMS, which sha256sum -c
reads.

    tools/make_packages.py FOLDER Pointalk.exe... [--linux pointalk]

The same programs give the same bytes on every machine and in every folder; for Linux, on machines with the same release of
Debian. The files in a zip or a Debian package bear the time that SOURCE_DATE_EPOCH tells, else that of the last commit, else
the earliest that a zip can tell. It needs makensis, and for Linux dpkg-dev."""

import argparse
import hashlib
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import time
import zipfile

from exe_header import exe_header
from make_deb import make_deb
from winget_manifests import manifests

ROOT = pathlib.Path(__file__).resolve().parent.parent
EARLIEST = 315532800  # 1980, seconds
ARCHITECTURES = {"x86_64": "x64", "i686": "x86"}  # as package managers look for them
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
    name = f"Pointalk-{version()}-{ARCHITECTURES[machine]}"
    package, installer = folder / f"{name}.zip", folder / f"{name}-setup.exe"
    make_zip(package, files)
    make_installer(installer, files, machine)
    return package, installer


def describe_packages(folder, packages, others=()):
    """Writes what tells of all packages: those for Windows, each a zip with its installer, and others; returns the paths."""
    setups = {ARCHITECTURES[exe_header(installer.read_bytes()).machine]: installer for _, installer in packages}
    date = time.strftime("%Y-%m-%d", time.gmtime(source_time()))
    files = {f"winget/{name}": text for name, text in manifests(version(), date, setups).items()}
    sums = {path.name: hashlib.sha256(path.read_bytes()).hexdigest() for path in [*sum(packages, ()), *others]}
    files["SHA256SUMS"] = "".join(f"{sums[name]}  {name}\n" for name in sorted(sums))
    (folder / "winget").mkdir(exist_ok=True)
    for name, text in files.items():
        (folder / name).write_text(text, "utf-8", newline="\n")
    return [folder / name for name in files]


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("exe", type=pathlib.Path, nargs="+")
    parser.add_argument("--linux", type=pathlib.Path)
    given = parser.parse_args()
    packages, others = [], []
    for exe in given.exe:
        try:
            packages.append(make_packages(given.folder, exe))
        except (OSError, ValueError, subprocess.CalledProcessError) as error:
            sys.exit(f"{exe}: {error}")
        print(*packages[-1], sep="\n")
    if given.linux:
        others.append(make_deb(given.folder, given.linux, version(), source_time()))
        print(*others)
    print(*describe_packages(given.folder, packages, others), sep="\n")


if __name__ == "__main__":
    main()
