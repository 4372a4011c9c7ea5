"""pointalk on a desktop of its own, with a program of ours whose things have known places."""

import os
import pathlib
import sys
import time

from desktop import LIMIT

HERE = pathlib.Path(__file__).resolve().parent
BUILD = pathlib.Path(os.environ.get("POINTALK_LINUX_BUILD", HERE.parents[1] / "build" / "linux-release"))
PROGRAM = BUILD / "pointalk"
RECORDER = BUILD / "libpointalk_note_recorder.so"
# Programs to point at, which have the same things at the same places: the window's title, and the command.
QT_TARGET = ("Qt Target", BUILD / "pointalk_qt_target")
GTK_TARGET = ("GTK Target", sys.executable, HERE / "gtk_target.py")

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


def wait_for_kind(desktop, point, words, elsewhere):
    """Points there from elsewhere and presses Control until the thing is said to be of that kind."""
    def identified():
        before = len(desktop.said())
        desktop.output("xdotool", "mousemove", *map(str, elsewhere), "sleep", "0.1", "mousemove", *map(str, point), "sleep", "0.1",
                       "keydown", "ctrl", "sleep", "0.1", "keyup", "ctrl")
        time.sleep(0.1)
        return f"It is a {words}" in desktop.said()[before:]
    desktop.wait_until(identified)


class Session:
    """A desktop with a target and pointalk on it."""

    def __init__(self, desktop, target=QT_TARGET, **env):
        self.desktop = desktop
        self.env = env
        self.title, *self.command = target
        self.pointalk = start_pointalk_over(desktop, **env)
        self.start_target()
        self.wait_for_name(place(0, 0), "Push me button")

    def start_target(self):
        self.target = self.desktop.start(*self.command)
        self.desktop.windows(self.title)

    def start_target_again(self):
        self.target.kill()
        self.target.wait(LIMIT)
        self.desktop.move(*place(0, 1))
        self.start_target()

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

    def said_in_open_list(self):
        """What is said over the entries of the combo box, and above and below them, while it is open."""
        self.wait_for_name(place(0, 8), "Red")
        x, y = place(0, 8)
        return self.said_while_open((x, y), [(x, y + down) for down in range(-30, 90, 10)])

    def said_in_open_menu(self):
        """What is said from the menu bar down to below the entries of the menu."""
        return self.said_while_open((20, 15), [(40, y) for y in range(25, 100, 10)])

    def said_while_open(self, opened_at, points):
        said = self.said_after(lambda: self.desktop.output("xdotool", "mousemove", *map(str, opened_at), "click", "1"))
        for point in points:
            self.desktop.move(*point)
            time.sleep(0.15)
        self.desktop.output("xdotool", "key", "Escape")
        return set(said())

    def survives_a_stopped_target(self):
        with self.desktop.stopped(self.target):
            self.tones_go_on()
        self.wait_for_name(place(0, 3), "Toggle me button")

    def tones_go_on(self):
        for point in ((700, 1000), place(0, 0), place(2, 12), place(0, 0)):
            tones_after(self.desktop, lambda to=point: self.desktop.move(*to))

    def reads_first_text(self):
        """Its first line is said, and then each of its words."""
        x, y = place(1, 0, 12)[0], MENU_HEIGHT + 15
        self.wait_for_name((x, y), "alpha beta gamma")
        said = self.said_after(lambda: None)
        for step in range(0, 120, 8):
            self.desktop.move(x + step, y)
            time.sleep(0.1)
        self.desktop.wait_until(lambda: "gamma" in said())
        assert "alpha beta gamma" not in said()

    def spells_the_field(self):
        self.desktop.output("xdotool", "keydown", "shift")
        try:
            self.wait_for_name(place(0, 6), "l i n e   t e x t")
        finally:
            self.desktop.output("xdotool", "keyup", "shift")

    def says_no_password(self):
        self.wait_for_name(place(0, 7), "Pass phrase")
        assert not any("secret" in text or "s e c r e t" in text for text in self.desktop.said())


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
