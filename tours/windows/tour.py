#!/usr/bin/env python3
"""The tour: Pointalk over Wine's own programs on a virtual screen, and what was heard and seen on it.

    tour.py OUTPUT_FOLDER        POINTALK_WIN_BUILD names the folder with the programs built for Windows

Leaves transcript.txt, tour.mid, tour.wav, a picture for each screen (tour.png, tour-2.png, ...), and how long the listener
waited for notes and words (latency.txt, latency.png). Exits with 1 when something that must be heard was not; what it was is
printed and stands at the transcript's end.
"""

import pathlib
import signal
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE.parent), str(HERE.parent.parent / "wine")]

from harness import ROOT, Desktop, Panel, now  # noqa: E402
import outcome  # noqa: E402
import screens  # noqa: E402
from places import Places  # noqa: E402
from recorded_hand import RecordedHand  # noqa: E402
from walk import Walk  # noqa: E402

START = (1000, 700)  # where the pointer is at first
STAND_INS = ("progman", "taskbar", "menus")  # hidden until their screen; Pointalk looks for the desktop when it starts


class Guide:
    """Shows the screens one after the other and keeps what they leave."""

    folder = "C:\\tour"  # whose files are visited

    def __init__(self, desktop, probe, target, pointalk, walk, output):
        self.desktop, self.target, self.pointalk, self.walk, self.output = desktop, target, pointalk, walk, output
        self.places = Places(probe)
        self.panel = Panel(probe, walk.hand)
        self._folder = desktop.drive() / "tour"
        self._folder.mkdir()
        self._started = []

    def start_program(self, *command):
        """Starts a program of Wine's own."""
        self._started.append(subprocess.Popen(["wine", *command], env=self.desktop.environment, stdin=subprocess.DEVNULL,
                                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL))

    def make_folder(self, name):
        """A folder in the visited one."""
        (self._folder / name).mkdir()

    def make_file(self, name, text):
        """A file in the visited folder; its Windows path."""
        (self._folder / name).write_bytes(text.encode("cp1252"))
        return f"{self.folder}\\{name}"

    def show_stand_ins(self, shown):
        for window in STAND_INS:
            self.target.ask("show" if shown else "hide", window)

    def picture(self, number, since):
        screenshot = self.desktop.folder / f"screen{number}.png"
        self.desktop.screenshot(screenshot)
        outcome.make_picture(self.output, number, screenshot, self.walk, since)

    def end_programs(self):
        for process in self._started:
            if process.poll() is None:
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
    settings = (ROOT / "packaging" / "PTK.ini").read_text(encoding="ascii").replace("\n", "\r\n")
    with tempfile.TemporaryDirectory() as waves, Desktop(private=True) as desktop, desktop.probe() as probe, \
            desktop.target("desktop", "menus") as target, RecordedHand(desktop.environment) as hand, \
            desktop.pointalk(settings) as pointalk:
        hand.move(*START)
        walk = Walk(hand, pointalk.heard, lambda x, y: probe.ask("at", x, y)["hwnd"])
        guide = Guide(desktop, probe, target, pointalk, walk, output)
        guide.show_stand_ins(False)
        begin = now()
        try:
            pointalk.start(POINTALK_WAVES=waves)
            pointalk.wait_running()
            walk_through(guide)
        except Exception as problem:  # what was heard up to here is kept
            walk.missed.append(f"the rest of the tour: {problem!r}")
        finally:
            guide.end_programs()
            outcome.make_files(output, waves, walk, begin)
    return outcome.report(output, walk)


if __name__ == "__main__":
    sys.exit(main())
