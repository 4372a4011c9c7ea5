#!/usr/bin/env python3
"""Checks that every test, fuzz target and benchmark is compiled by one of the given build folders.

    tools/check_tests_built.py BUILD_FOLDER..."""

import json
import pathlib
import re
import sys

from checking import arguments, report


def parts_of(source):
    """The files that a compiled one includes to be compiled with it; it is generated where a build joins files."""
    if not source.name.startswith("unity_"):
        return []
    return [pathlib.Path(name).resolve() for name in re.findall(r'^#include "(.+)"$', source.read_text("utf-8"), re.M)]


def main():
    options = arguments(__doc__, builds="build folders, each with its compile_commands.json")
    if not options.builds:
        sys.exit("name the build folders")
    compiled = set()
    for build in options.builds:
        for entry in json.loads((pathlib.Path(build) / "compile_commands.json").read_text()):
            source = (pathlib.Path(entry["directory"]) / entry["file"]).resolve()
            compiled.update([source, *parts_of(source)])
    rules = {}
    for kind in ("test", "fuzz", "bench"):
        files = sorted((options.root / "tests").rglob(f"*_{kind}.cpp"))
        rules[f"Every *_{kind}.cpp is built ({len(files)})."] = [
            f"{path.relative_to(options.root).as_posix()}:1: is in no target" for path in files
            if path.resolve() not in compiled]
    report(rules)


if __name__ == "__main__":
    main()
