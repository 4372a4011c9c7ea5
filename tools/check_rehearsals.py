#!/usr/bin/env python3
"""Plays rehearsals and compares their transcripts with the golden texts beside them.

    tools/check_rehearsals.py [--program BUILD/pointalk-rehearse] [NAME...]

NAME is a rehearsal or a folder in tests/rehearsals, with or without what stands before and after its name in a path;
without names all are played. The program is the newest that linux-asan-clang, linux-release and plain have built unless one
is given. With REBASELINE=1 in the environment the transcripts become the golden texts; read the difference before
committing it. Golden texts in starts/ are whole; in the others a line such as `(starts as usual)` stands for what
starts/as-usual.txt has (tools/start_blocks.py). A golden text that begins with `! ` is of a script that is to be
refused: exit status 2, nothing on standard output, and what stands after `! ` on standard error."""

import argparse
import concurrent.futures
import difflib
import os
import pathlib
import subprocess
import sys

from start_blocks import StartBlocks

SECONDS = 60
BUILDS = ("linux-asan-clang", "linux-release", "plain")


def play(program, script):
    """The transcript as text, or raises ValueError with what went wrong."""
    try:
        run = subprocess.run([program, script], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                             stderr=subprocess.PIPE, timeout=SECONDS)
    except subprocess.TimeoutExpired as late:
        raise ValueError(f"still running after {SECONDS} seconds") from late
    errors = run.stderr.decode("utf-8", "replace")
    if run.returncode == 0 and not errors:
        return run.stdout.decode("utf-8")
    if run.returncode == 2 and not run.stdout and errors.count("\n") == 1:
        return "! " + errors
    raise ValueError(f"exit status {run.returncode}\n{errors}")


def compare(program, script, starts, rebaseline):
    """What differs from the golden text; empty when nothing does."""
    golden = script.with_suffix(".txt")
    try:
        played = play(program, script)
        if rebaseline:
            golden.write_bytes(starts.fold(played).encode("utf-8"))
            return ""
        if not golden.exists():
            return "has no golden text"
        expected = starts.unfold(golden.read_bytes().decode("utf-8"))
    except (ValueError, OSError) as error:
        return str(error)
    if expected == played:
        return ""
    return "\n".join(difflib.unified_diff(expected.split("\n"), played.split("\n"), "golden", "played", lineterm=""))


def newest_program(root):
    """The one that was built last, or None."""
    programs = [root / "build" / build / "pointalk-rehearse" for build in BUILDS]
    return max(filter(pathlib.Path.is_file, programs), key=lambda program: program.stat().st_mtime, default=None)


def chosen(folder, names):
    """The scripts that are called so or lie in a folder that is; all when there are no names. Raises ValueError."""
    scripts = sorted(folder.rglob("*.json"))
    found = set()
    for name in (pathlib.Path(given).stem for given in names):
        called = [script for script in scripts if name in (script.stem, *script.relative_to(folder).parent.parts)]
        if not called:
            raise ValueError(f"no rehearsal and no folder of them is called {name}")
        found.update(called)
    return sorted(found) if names else scripts


def arguments():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--root", type=pathlib.Path, default=pathlib.Path(__file__).resolve().parent.parent)
    parser.add_argument("--program", type=pathlib.Path)
    parser.add_argument("names", nargs="*", metavar="NAME")
    options = parser.parse_args()
    options.folder = options.root / "tests" / "rehearsals"
    options.program = options.program or newest_program(options.root)
    if not options.program:
        parser.error("no pointalk-rehearse is built: cmake -S . -B build/plain && "
                     "cmake --build build/plain --target pointalk-rehearse")
    try:
        options.scripts = chosen(options.folder, options.names)
    except ValueError as error:
        parser.error(str(error))
    return options


def compare_all(options, scripts, starts):
    """How many differ; they are told."""
    rebaseline = os.environ.get("REBASELINE") == "1"
    failed = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        results = pool.map(lambda script: compare(options.program.resolve(), script, starts, rebaseline), scripts)
        for script, difference in zip(scripts, results):
            if difference:
                failed += 1
                print(f"FAILED: {script.relative_to(options.folder)}\n{difference}")
    return failed


def main():
    options = arguments()
    blocks = options.folder / "starts"
    failed = compare_all(options, [script for script in options.scripts if script.parent == blocks], StartBlocks({}))
    starts = StartBlocks.read(sorted(blocks.glob("*.json")))
    failed += compare_all(options, [script for script in options.scripts if script.parent != blocks], starts)
    print(f"{len(options.scripts) - failed} passed, {failed} failed")
    sys.exit(1 if failed or not options.scripts else 0)


if __name__ == "__main__":
    main()
