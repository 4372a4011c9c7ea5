#!/usr/bin/env python3
"""Runs a command on a fresh desktop under Wine where programs of one build find both speech engines.

    tools/on_desktop.py BUILD_FOLDER COMMAND...

The desktop has a screen and a prefix of its own, which DISPLAY, WINEPREFIX and POINTALK_WIN_BUILD name. POINTALK_PREFIX_BASE
may name the untouched prefix that it is a copy of."""

import os
import pathlib
import subprocess
import sys


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    os.environ["POINTALK_WIN_BUILD"] = str(pathlib.Path(sys.argv[1]).resolve())
    sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "wine"))
    from harness import Desktop  # reads the environment

    with Desktop(private=True, engines="both") as desktop:
        status = subprocess.run(sys.argv[2:], env=desktop.environment, stdin=subprocess.DEVNULL, check=False).returncode
    if status < 0:
        os.kill(os.getpid(), -status)
    sys.exit(status)


if __name__ == "__main__":
    main()
