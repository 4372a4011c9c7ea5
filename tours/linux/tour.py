#!/usr/bin/env python3
"""The tour: pointalk over programs of Debian's on a virtual screen, and what was heard and seen on it.

    tour.py OUTPUT_FOLDER        POINTALK_LINUX_BUILD names the folder with the programs built for Linux

Leaves transcript.txt, tour.mid, tour.wav, a picture for each screen (tour.png, tour-2.png, ...), and how long the listener
waited for notes and words (latency.txt, latency.png). Exits with 1 when something that must be heard was not; what it was is
printed and stands at the transcript's end.
"""

import os
import pathlib
import signal
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
sys.path[:0] = [str(ROOT / folder) for folder in ("tours", "wine", "x11")]

from desktop import Desktop  # noqa: E402
from harness import now  # noqa: E402
import outcome  # noqa: E402
from desktop_heard import DesktopHeard  # noqa: E402
from mail import Mail  # noqa: E402
from panel import Panel  # noqa: E402
from places import Places  # noqa: E402
from recorded_hand import RecordedHand  # noqa: E402
import screens  # noqa: E402
from tones import SCREEN  # noqa: E402
from walk import Walk  # noqa: E402

BUILD = pathlib.Path(os.environ.get("POINTALK_LINUX_BUILD", ROOT / "build" / "linux-release"))
PROGRAM, RECORDER = BUILD / "pointalk", BUILD / "libpointalk_note_recorder.so"
START = (1000, 740)  # where the pointer is at first


class Guide:
    """Shows the screens one after the other and keeps what they leave."""

    def __init__(self, desktop, places, mail, walk, output):
        self.desktop, self.places, self.mail, self.walk, self.output = desktop, places, mail, walk, output
        self.panel = Panel(desktop, walk.hand, PROGRAM)
        self.pointalk = None
        self._started = []

    def start_program(self, *command):
        self._started.append(self.desktop.start(*command))
        return self._started[-1]

    def picture(self, number, since):
        screenshot = self.desktop.folder / f"screen{number}.png"
        self.desktop.output("import", "-window", "root", screenshot)
        outcome.make_picture(self.output, number, screenshot, self.walk, since)

    def end_programs(self):
        for process in self._started:
            process.kill()
            process.wait(20)
        self._started.clear()


def walk_through(guide):
    for number, screen in enumerate(screens.ALL, 1):
        since = now()
        screen(guide)
        guide.picture(number, since)
        guide.end_programs()


def main():
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(128 + signal.SIGTERM))  # so that what was started is ended
    output = outcome.empty_folder(sys.argv[1])
    with tempfile.TemporaryDirectory(prefix="pointalk-tour-") as folder, \
            Desktop(folder, size=f"{SCREEN[0]}x{SCREEN[1]}") as desktop, RecordedHand(desktop.env) as hand:
        waves = desktop.folder / "waves"
        waves.mkdir()
        desktop.start_voice("--waves", waves)
        hand.move(*START)
        places, mail = Places(desktop), Mail(desktop.folder)
        walk = Walk(hand, DesktopHeard(desktop), places.at)
        guide = Guide(desktop, places, mail, walk, output)
        begin = now()
        try:
            guide.pointalk = desktop.start_pointalk(PROGRAM, preload=RECORDER, PATH=mail.path_before(desktop.env["PATH"]))
            walk.hears_out()  # the pointer is not looked at before the greeting is over
            walk_through(guide)
        except Exception as problem:  # what was heard up to here is kept
            walk.missed.append(f"the rest of the tour: {problem!r}")
        finally:
            guide.end_programs()
            outcome.make_files(output, waves, walk, begin)
    return outcome.report(output, walk)


if __name__ == "__main__":
    sys.exit(main())
