#!/usr/bin/env python3
"""Measures pointalk beside Orca: one virtual screen, one pointer that both follow at once, programs that nobody here wrote.

    tests/bench/linux/measure.py [--moves N] [--keep FOLDER]

Installs what it needs, builds pointalk, and prints tables: how long each of the two takes from a move of the pointer to its note
and to its words, and which moves it spoke of; what both cost, moving and at rest; whom pointalk writes to at rest; and what one
program that is stopped does to the rest. Exits with 1 when one of the aims is missed. With --keep, what the recorders wrote is
left in FOLDER. Nothing is heard: the tones go to a sound device that plays to nobody, and each of the two has a
speech-dispatcher of its own that only writes down.
"""

import argparse
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[3]
sys.path[:0] = [str(ROOT / folder) for folder in ("tours/linux", "tours", "wine", "x11")]

BUILD = ROOT / "build" / "linux-release"
TARGETS = ("pointalk", "pointalk_note_recorder")


def prepare():
    """The libraries of the modules that are imported afterwards are among what is installed."""
    with open(BUILD.parent / "measure.log", "w", encoding="utf-8") as log:
        for command in (["bash", "-c", ". tools/setup.sh && pointalk_setup bench"], ["cmake", "--preset", BUILD.name],
                        ["cmake", "--build", "--preset", BUILD.name, "--target", *TARGETS]):
            if subprocess.run(command, cwd=ROOT, stdin=subprocess.DEVNULL, stdout=log, stderr=log, check=False).returncode:
                sys.exit(f"Failed: {' '.join(command)}; see {log.name}")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--moves", type=int, default=200)
    parser.add_argument("--keep", type=pathlib.Path)
    options = parser.parse_args()
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(128 + signal.SIGTERM))  # so that what was started is ended
    BUILD.parent.mkdir(exist_ok=True)
    prepare()
    import stages  # needs what was installed
    with tempfile.TemporaryDirectory(prefix="pointalk-bench-") as folder:
        try:
            aims = stages.run(pathlib.Path(folder), BUILD, options.moves)
        finally:
            if options.keep:
                options.keep.mkdir(parents=True, exist_ok=True)
                for log in pathlib.Path(folder).glob("*.jsonl"):
                    shutil.copy(log, options.keep)
    print(f"\n{'Aim':48}{'measured':>12}   reached")
    for aim, measured, reached in aims:
        print(f"{aim:48}{measured:>12}   {'yes' if reached else 'NO'}")
    sys.exit(0 if all(reached for _, _, reached in aims) else 1)


if __name__ == "__main__":
    os.environ.pop("DISPLAY", None)
    main()
