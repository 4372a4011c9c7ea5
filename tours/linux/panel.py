"""The control panel and the boxes that Pointalk asks with, by keys alone."""

import contextlib

from desktop import KEY_LIMIT
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
        self._desktop.open_menu(lambda: self._hand.tap("alt+" + key))
        self._hand.tap(*["Down"] * entries.index(entry), "Return")

    def answer(self, title, key):
        """Answers the box with that title, and waits until it is gone. One that has just come up may not know yet that it has the
        keyboard; then the key is pressed again."""
        self.wait_for(title)

        def is_gone():
            self._hand.tap(key)
            with contextlib.suppress(AssertionError):
                return wait_until(lambda: self.active() != title, KEY_LIMIT, "the box is gone")
            return False

        wait_until(is_gone, LIMIT, f"the box {title!r} is gone after {key}")
