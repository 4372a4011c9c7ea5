#!/usr/bin/env python3
"""Plays every rehearsal and compares its transcript with the golden text beside it.

    tools/check_rehearsals.py --program BUILD/pointalk-rehearse [FOLDER]

FOLDER is tests/rehearsals unless given. With REBASELINE=1 in the environment the transcripts become the golden texts;
read the difference before committing it. A golden text that begins with `! ` is of a script that is to be refused:
exit status 2, nothing on standard output, and what stands after `! ` on standard error."""

import argparse
import concurrent.futures
import difflib
import os
import pathlib
import subprocess
import sys

SECONDS = 60


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


def compare(program, script, rebaseline):
    """What differs from the golden text; empty when nothing does."""
    golden = script.with_suffix(".txt")
    try:
        played = play(program, script)
    except (ValueError, OSError) as error:
        return str(error)
    if rebaseline:
        golden.write_bytes(played.encode("utf-8"))
        return ""
    if not golden.exists():
        return "has no golden text"
    expected = golden.read_bytes().decode("utf-8")
    if expected == played:
        return ""
    return "\n".join(difflib.unified_diff(expected.split("\n"), played.split("\n"), "golden", "played", lineterm=""))


def main():
    here = pathlib.Path(__file__).resolve().parent.parent
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", type=pathlib.Path, required=True)
    parser.add_argument("folder", nargs="?", type=pathlib.Path, default=here / "tests" / "rehearsals")
    options = parser.parse_args()
    rebaseline = os.environ.get("REBASELINE") == "1"
    scripts = sorted(options.folder.rglob("*.json"))
    failed = []
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        results = pool.map(lambda script: compare(options.program.resolve(), script, rebaseline), scripts)
        for script, difference in zip(scripts, results):
            if difference:
                failed.append(script)
                print(f"FAILED: {script.relative_to(options.folder)}\n{difference}")
    print(f"{len(scripts) - len(failed)} passed, {len(failed)} failed")
    sys.exit(1 if failed or not scripts else 0)


if __name__ == "__main__":
    main()
