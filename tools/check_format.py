#!/usr/bin/env python3
"""Checks the layout of the sources with clang-format 14, the release that .clang-format is written for.

With `--fix` it lays them out instead."""

import argparse
import pathlib
import re
import shutil
import subprocess
import sys

from checking import OWN_FOLDERS, report, sources


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--root", type=pathlib.Path, default=pathlib.Path(__file__).resolve().parent.parent)
    parser.add_argument("--fix", action="store_true")
    parser.add_argument("folders", nargs="*", default=OWN_FOLDERS)
    options = parser.parse_args()
    program = shutil.which("clang-format-14")
    if not program:
        sys.exit("clang-format-14 is not installed")
    files = [path.relative_to(options.root) for path in sources(options.root, options.folders)]
    if not files:
        return report({"The sources are laid out.": []})
    if options.fix:
        sys.exit(subprocess.run([program, "-i", *files], cwd=options.root).returncode)
    result = subprocess.run([program, "--dry-run", "-Werror", "--ferror-limit=1", *files], cwd=options.root,
                            stderr=subprocess.PIPE, text=True)
    breaches = re.findall(r"^.*?:\d+:\d+: error: .*$", result.stderr, re.M)
    if result.returncode and not breaches:
        breaches = [result.stderr]
    return report({"The sources are laid out.": breaches})


if __name__ == "__main__":
    main()
