"""Finds things of the visited programs, and puts their windows side by side."""

import json
import pathlib

from harness import wait_until

LISTER = pathlib.Path(__file__).resolve().parent / "list_things.py"
LIMIT = 60  # seconds


class Places:
    def __init__(self, desktop):
        self._desktop = desktop
        self._things = []

    def look(self):
        """Asks anew what is shown."""
        told = self._desktop.output("/usr/bin/python3", LISTER)
        self._things = json.loads(told) if told else []
        return self._things

    def put(self, program, title, rect, number=0):
        """Moves a program's window with that title, the number-th of several; one that has a size of its own keeps it."""
        def search():
            found = self._desktop.output("xdotool", "search", "--all", "--onlyvisible", "--pid", program.pid, "--name",
                                         f"^{title}$").split()
            return found[number].decode() if len(found) > number else None

        window = wait_until(search, LIMIT, f"a window {title!r}")
        left, top, right, bottom = rect
        self._desktop.output("xdotool", "windowactivate", "--sync", window, "windowmove", window, left, top, "windowsize", window,
                             right - left, bottom - top)

    def thing(self, name, role=None, program=None, number=0):
        """What has that name and role; the number-th of several. Waits for it."""
        def search():
            found = [thing for thing in self.look() if thing["name"] == name and role in (None, thing["role"])
                     and program in (None, thing["program"]) and _is_shown(thing)]
            return found[number] if len(found) > number else None

        return wait_until(search, LIMIT, f"a {role or 'thing'} {name!r} is shown")

    def place(self, *arguments, **named):
        return centre(self.thing(*arguments, **named)["rect"])

    def words(self, program, *words):
        """A place on each of these words of a program's texts."""
        def search():
            shown = {word: centre(rect) for thing in self.look() if thing["program"] == program and _is_shown(thing)
                     for word, rect in thing["words"]}
            return shown if shown.keys() >= set(words) else None

        return wait_until(search, LIMIT, f"the words {words} are shown")

    def at(self, x, y):
        """Which of the things that were last asked for is at a place: the innermost one."""
        inside = [thing for thing in self._things if _is_shown(thing) and _covers(thing["rect"], x, y)]
        return max(inside, key=lambda thing: thing["depth"], default=None)


def _is_shown(thing):
    left, top, right, bottom = thing["rect"]
    return right > left >= 0 and bottom > top >= 0


def _covers(rect, x, y):
    left, top, right, bottom = rect
    return left <= x < right and top <= y < bottom


def centre(rect):
    left, top, right, bottom = rect
    return (left + right) // 2, (top + bottom) // 2
