#!/usr/bin/env python3
"""Checks that two clones of the last commit, in folders of different names, make the same packages. It builds everything
twice, which takes minutes.

    tools/check_reproducible.py [--root DIR]"""

import pathlib
import subprocess
import tempfile

from checking import arguments, report

SAME = "Two clones make the same packages."


def packages_of(root, clone):
    """What a clone makes, by its path there."""
    subprocess.run(["git", "-c", "safe.directory=*", "clone", "-q", root, clone], check=True)
    subprocess.run(["./run", "--package"], cwd=clone, check=True, stdin=subprocess.DEVNULL)
    made = clone / "packages"
    return {str(path.relative_to(made)): path.read_bytes() for path in made.rglob("*") if path.is_file()}


def main():
    root = arguments(__doc__).root
    with tempfile.TemporaryDirectory() as folder:
        one = packages_of(root, pathlib.Path(folder) / "one")
        another = packages_of(root, pathlib.Path(folder) / "another place" / "further down")
    breaches = [f"{name} differs" for name in sorted(one.keys() | another.keys()) if one.get(name) != another.get(name)]
    report({SAME: breaches if one else ["there are no packages"]})


if __name__ == "__main__":
    main()
