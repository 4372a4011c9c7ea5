"""The control panel and the boxes that Pointalk asks with, by keys alone."""

from harness import wait_until
from harness.panel import CAPTION, LIMIT, MENUS


class Panel:
    def __init__(self, desktop, hand, program):
        self._desktop, self._hand, self._program = desktop, hand, program

    def open(self):
        """Brings the panel up, as a second start does."""
        self._desktop.start(self._program).wait(LIMIT)
        wait_until(lambda: self._desktop.active_window() == CAPTION, LIMIT, "the panel has the keyboard")

    def is_minimised(self):
        return self._desktop.active_window() != CAPTION

    def choose(self, entry):
        """Chooses an entry by its menu's access key, the arrows and Enter."""
        key, entries = next((key, entries) for key, entries in MENUS.items() if entry in entries)
        self._desktop.open_menu(lambda: self._hand.tap("alt+" + key))
        self._hand.tap(*["Down"] * entries.index(entry), "Return")

    def answer(self, title, key):
        """Answers the box with that title, and waits until it is gone."""
        self._desktop.answer_box(title, lambda: self._hand.tap(key))
