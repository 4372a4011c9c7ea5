#!/usr/bin/env python3
"""Runs a command on a desktop of its own, whose voice only writes down; see desktop.py.

    tests/linux/on_desktop.py PROGRAM [ARGUMENT...]

POINTALK_HEARD names what the voice has written. The program's current folder is one that goes with the desktop."""

import pathlib
import signal
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "x11"))

from desktop import Desktop  # noqa: E402


def main():
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(128 + signal.SIGTERM))  # so that what was started is ended
    with tempfile.TemporaryDirectory() as folder, Desktop(pathlib.Path(folder)) as desktop:
        desktop.start_voice()
        program = pathlib.Path(sys.argv[1]).resolve()
        sys.exit(desktop.start(program, *sys.argv[2:], stdout=None, POINTALK_HEARD=str(desktop.speech_log)).wait())


if __name__ == "__main__":
    main()
