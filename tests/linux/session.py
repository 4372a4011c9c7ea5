"""pointalk on a desktop of its own, with a program of ours whose things have known places."""

import os
import pathlib
import time

from desktop import LIMIT

BUILD = pathlib.Path(os.environ.get("POINTALK_LINUX_BUILD",
                                    pathlib.Path(__file__).resolve().parents[2] / "build" / "linux-release"))
PROGRAM = BUILD / "pointalk"
TARGET = BUILD / "pointalk_qt_target"
RECORDER = BUILD / "libpointalk_note_recorder.so"

MENU_HEIGHT = 30
ROW = 40


def place(column, row, x=40):
    """A point in a row of the target's columns."""
    return 10 + column * 240 + x, MENU_HEIGHT + row * ROW + ROW // 2


def start_pointalk_over(desktop, **env):
    return desktop.start_pointalk(PROGRAM, preload=RECORDER, **env)


def wait_for_name(desktop, point, words, elsewhere):
    """Points there from another thing until it is named: a program has to be on the bus first, a busy machine may take
    longer for an answer than is waited for, and what was said last is not said again."""
    def named():
        desktop.move(*elsewhere)
        time.sleep(0.2)
        before = len(desktop.said())
        desktop.move(*point)
        end = time.monotonic() + 1
        while time.monotonic() < end:
            if words in desktop.said()[before:]:
                return True
            time.sleep(0.02)
        return False
    desktop.wait_until(named)


class Session:
    """A desktop with the target and pointalk on it."""

    def __init__(self, desktop, **env):
        self.desktop = desktop
        self.env = env
        self.pointalk = start_pointalk_over(desktop, **env)
        self.target = desktop.start(TARGET)
        desktop.windows("Qt Target")
        self.wait_for_name(place(0, 0), "Push me button")

    def wait_for_name(self, point, words):
        wait_for_name(self.desktop, point, words, place(0, 5) if words != "A label" else place(0, 0))

    def start_again(self):
        """Ends pointalk as the end of a session does, and starts it with what it has kept."""
        self.pointalk.terminate()
        assert self.pointalk.wait(LIMIT) == 0
        self.pointalk = start_pointalk_over(self.desktop, **self.env)

    def said_after(self, action):
        before = len(self.desktop.said())
        action()
        return lambda: self.desktop.said()[before:]


def wait_for_tones(desktop):
    """Until every move sounds, which they do not while pointalk begins or asks something."""
    def sound():
        heard = [len(desktop.notes())]
        for point in ((640, 300), (100, 600), (640, 300), (100, 600)):
            desktop.move(*point)
            time.sleep(0.2)
            heard.append(len(desktop.notes()))
        return all(after > before for before, after in zip(heard[1:], heard[2:]))
    desktop.wait_until(sound)


def position_tones(desktop):
    """The lower and the higher tone that were played last; one that the next place shares is not played again."""
    keys = {channel: key for channel, key, _ in desktop.notes()}
    return keys.get(14), keys.get(13)


def tones_after(desktop, action):
    """The tones that follow an action, once both are others than before."""
    before = position_tones(desktop)
    action()
    desktop.wait_until(lambda: all(new != old for new, old in zip(position_tones(desktop), before)))
    return position_tones(desktop)
