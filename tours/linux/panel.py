"""The control panel and the boxes that Pointalk asks with, by keys alone."""

from harness import wait_until
from harness.panel import CAPTION, LIMIT, MENUS


class Panel:
    def __init__(self, desktop, hand, program):
        self._desktop, self._hand, self._program = desktop, hand, program

    def active(self):
        """The name of the window that has the keyboard."""
        return self._desktop.output("xdotool", "getactivewindow", "getwindowname").decode().strip()

    def wait_for(self, name):
        wait_until(lambda: self.active() == name, LIMIT, lambda: f"the window {name!r}: {self.active()!r}")

    def open(self):
        """Brings the panel up, as a second start does."""
        self._desktop.start(self._program).wait(LIMIT)
        self.wait_for(CAPTION)

    def is_minimised(self):
        return self.active() != CAPTION

    def choose(self, entry):
        """Chooses an entry by its menu's access key, the arrows and Enter."""
        key, entries = next((key, entries) for key, entries in MENUS.items() if entry in entries)
        self._hand.tap("alt+" + key, *["Down"] * entries.index(entry), "Return")

    def answer(self, title, key):
        """Answers the box with that title, and waits until it is gone."""
        self.wait_for(title)
        self._hand.tap(key)
        wait_until(lambda: self.active() != title, LIMIT, f"the box {title!r} is gone after {key}")
