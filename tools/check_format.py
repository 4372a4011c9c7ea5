#!/usr/bin/env python3
"""Checks the layout of the sources with clang-format 14, the release that .clang-format is written for.

Another release lays some lines out otherwise, so where this one is not installed the check is left out, and says so. With
`--fix` it lays the sources out instead."""

import argparse
import pathlib
import re
import shutil
import subprocess
import sys

from checking import OWN_FOLDERS, report, sources

PROGRAM = "clang-format-14"
RULE = "The sources are laid out."


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--root", type=pathlib.Path, default=pathlib.Path(__file__).resolve().parent.parent)
    parser.add_argument("--fix", action="store_true")
    parser.add_argument("folders", nargs="*", default=OWN_FOLDERS)
    options = parser.parse_args()
    program = shutil.which(PROGRAM)
    if not program and options.fix:
        sys.exit(f"{PROGRAM} is not installed")
    if not program:
        print(f"left out: {RULE} {PROGRAM} is not installed")
        return report({})
    files = [path.relative_to(options.root) for path in sources(options.root, options.folders)]
    if not files:
        return report({RULE: []})
    if options.fix:
        sys.exit(subprocess.run([program, "-i", *files], cwd=options.root).returncode)
    result = subprocess.run([program, "--dry-run", "-Werror", "--ferror-limit=1", *files], cwd=options.root,
                            stderr=subprocess.PIPE, text=True)
    breaches = re.findall(r"^.*?:\d+:\d+: error: .*$", result.stderr, re.M)
    if result.returncode and not breaches:
        breaches = [result.stderr]
    return report({RULE: breaches})


if __name__ == "__main__":
    main()
