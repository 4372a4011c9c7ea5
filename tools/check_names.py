#!/usr/bin/env python3
"""Checks that no committed text points outside the repository: paths of one machine, numbered chapters of papers
that are not here, tickets of a tracker."""

import re
import subprocess

from checking import arguments, report

# Each pattern is written so that it does not match itself.
RULES = {
    "No path of one machine.": r"(?<![\w.-])/(?:[w]ork|[r]oot|[f]arm)/|(?<![\w.-])/[h]ome/\w",
    "No chapter of a paper that is not in the repository.":
        r"\b[P]arts? [1-6]\.[1-6]\b|\b[s]pecification\b|\b[s]pec\.md\b",
    "No ticket of a tracker.": r"\b[i]ssues? ?#?\d+",
}


def committed(root):
    """Tracked files, and new ones that git would take."""
    command = ["git", "-c", "safe.directory=*", "ls-files", "-co", "--exclude-standard", "-z"]
    listing = subprocess.run(command, cwd=root, check=True, stdout=subprocess.PIPE).stdout
    return sorted({name for name in listing.decode().split("\0") if name and (root / name).is_file()})


def main():
    root = arguments(__doc__).root
    breaches = {rule: [] for rule in RULES}
    for name in committed(root):
        data = (root / name).read_bytes()
        if b"\0" in data:
            continue
        for number, line in enumerate(data.decode("utf-8", "replace").split("\n"), 1):
            for rule, pattern in RULES.items():
                found = re.search(pattern, line, re.I)
                if found:
                    breaches[rule].append(f"{name}:{number}: {found.group()}")
    report(breaches)


if __name__ == "__main__":
    main()
