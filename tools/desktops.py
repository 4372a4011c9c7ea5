"""The Windows desktop that the steps of tools/run_tests.py share."""

import contextlib
import os
import shutil
import subprocess

from steps import LOGS, ROOT


@contextlib.contextmanager
def virtual_screen():
    """An X server of our own on a free display; yields the display's name."""
    reading, writing = os.pipe()
    command = ["Xvfb", "-displayfd", str(writing), "-screen", "0", "1280x1024x24", "-nolisten", "tcp"]
    with open(LOGS / "xvfb.log", "wb") as log:
        server = subprocess.Popen(command, pass_fds=(writing,), stdin=subprocess.DEVNULL, stdout=log,
                                  stderr=subprocess.STDOUT)
    os.close(writing)
    try:
        with open(reading, encoding="ascii") as answer:
            number = answer.readline().strip()
        if not number:
            raise OSError("Xvfb did not start")
        yield f":{number}"
    finally:
        server.terminate()
        server.wait(10)


@contextlib.contextmanager
def windows_desktop(programs):
    """A fresh Wine prefix with both speech engines on a screen of its own, and an untouched one beside it; yields the
    environment of the programs there, which were built in that folder."""
    untouched, prefix = ROOT / "build" / "test-prefix-untouched", ROOT / "build" / "test-prefix"
    for folder in (untouched, prefix):
        shutil.rmtree(folder, ignore_errors=True)
    with virtual_screen() as display:
        environment = {
            "DISPLAY": display, "WINEPREFIX": str(prefix), "WINEARCH": "win64", "WINEDEBUG": "-all",
            "WINEDLLOVERRIDES": "mscoree,mshtml,winedbg.exe,winemenubuilder.exe=;winmm=n,b",
            "POINTALK_WIN_BUILD": str(programs), "POINTALK_PREFIX_BASE": str(untouched),
        }
        with open(LOGS / "prefix.log", "wb") as log:
            def run(*command, seconds):
                subprocess.run([str(part) for part in command], env={**os.environ, **environment}, timeout=seconds,
                               check=True, stdin=subprocess.DEVNULL, stdout=log, stderr=subprocess.STDOUT)
            maker = ROOT / "wine" / "prefix.sh"
            run(maker, "make", untouched, seconds=300)
            run(maker, "copy", untouched, prefix, seconds=120)
            run(maker, "engines", prefix, "both", programs / "wine" / "pointalk_voice.dll", seconds=120)
            run("wineserver", "-w", seconds=60)  # the one that registered the engines still lingers
            run("wineserver", "-p", seconds=30)
            try:
                yield environment
            finally:
                with contextlib.suppress(subprocess.SubprocessError):
                    run("wineserver", "-k", seconds=30)
                    run("wineserver", "-w", seconds=30)
