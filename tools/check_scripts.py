#!/usr/bin/env python3
"""Checks the Python with flake8 and the shell with shellcheck."""

import subprocess
import sys

from checking import arguments, report


def complaints(root, *command):
    """The lines that a linter prints of what is wrong."""
    run = subprocess.run(command, cwd=root, check=False, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                         stderr=subprocess.STDOUT, text=True)
    lines = run.stdout.splitlines()
    return lines or [f"exit status {run.returncode}"] * bool(run.returncode)


def shell_scripts(root):
    """Files that begin as shell does, and those that such files source."""
    files = [path for path in root.rglob("*") if path.is_file() and path.suffix in ("", ".sh")
             and not {"build", ".git", "tour", "packages"} & set(path.relative_to(root).parts)]
    return sorted(path for path in files if path.suffix == ".sh" or path.read_bytes()[:9] in (b"#!/bin/sh", b"#!/bin/ba"))


def main():
    root = arguments(__doc__).root
    report({
        "flake8 is content with the Python.": complaints(root, sys.executable, "-m", "flake8"),
        "shellcheck is content with the shell.": complaints(root, "shellcheck", "-x", "-f", "gcc", *shell_scripts(root)),
    })


if __name__ == "__main__":
    main()
