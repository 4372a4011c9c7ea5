#!/usr/bin/env python3
"""Checks that routines fit on a screen: none over 70 lines. Names files over 300 lines, which is a warning only.

It reads the layout that clang-format gives: a routine that is not written inside a class ends with a `}` in the first
column, and begins at the last line before it that starts there. Tests and tables are exempt."""

import re

from checking import OWN_FOLDERS, arguments, report, sources

LONGEST_ROUTINE = 70
LONGEST_FILE = 300

NO_ROUTINE = re.compile(r'(?:namespace|class|struct|enum|union)\b|extern "C" \{')


def long_routines(name, lines):
    """Breaches of one file."""
    breaches, start = [], None
    for number, line in enumerate(lines, 1):
        if line == "}":
            if start and number - start + 1 > LONGEST_ROUTINE:
                breaches.append(f"{name}:{start}: a routine of {number - start + 1} lines")
            start = None
        elif re.match(r"[A-Za-z_\[]", line):
            start = None if NO_ROUTINE.match(line) else number
    return breaches


def main():
    root = arguments(__doc__).root
    breaches = []
    for path in sources(root, OWN_FOLDERS):
        name = path.relative_to(root).as_posix()
        lines = path.read_text(encoding="utf-8").splitlines()
        if name.startswith("tests/"):
            continue
        breaches += long_routines(name, lines)
        if len(lines) > LONGEST_FILE:
            print(f"warning: {name} has {len(lines)} lines")
    report({"No routine is longer than 70 lines.": breaches})


if __name__ == "__main__":
    main()
