"""Finds windows of the visited programs and puts them side by side."""

import time

from harness import wait_until


class Places:
    def __init__(self, probe):
        self._probe = probe

    def top_window(self, class_name, limit=40):
        """The visible top-level window of a class; waits for it."""
        def look():
            return next((w for w in self._probe.ask("windows")["windows"] if w["class"] == class_name), None)

        return wait_until(look, limit, f"a window of class {class_name} is shown")

    def put(self, window, rect, limit=10):
        """Moves a window; one that has a size of its own keeps it."""
        self._probe.ask("place", window["hwnd"], rect)

        def placed():
            now = next(w for w in self._probe.ask("windows")["windows"] if w["hwnd"] == window["hwnd"])
            return now if now["rect"][:2] == list(rect[:2]) else None

        return wait_until(placed, limit, "a window is where it was put")

    def restored(self, window, limit=10):
        """Waits until a minimised window is open and ready for keys."""
        def look():
            now = next((w for w in self._probe.ask("windows")["windows"] if w["hwnd"] == window["hwnd"]), None)
            return now if now and now["rect"][3] - now["rect"][1] > 60 else None

        opened = wait_until(look, limit, "the window is open")
        time.sleep(0.3)  # Wine gives it the keyboard a little later
        return opened

    def child(self, window, class_name, title=None, number=0, limit=10):
        """A visible window below one, by its class and, where given, its title; the number-th of several."""
        def look():
            found = [w for w in self._probe.ask("windows", window["hwnd"])["windows"]
                     if w["class"] == class_name and title in (None, w["title"])]
            return found[number] if len(found) > number else None

        return wait_until(look, limit, f"a {class_name} {title or ''} is shown")


def inside(window, x, y):
    """A point of a window: pixels from its left and top, or from its right and bottom where negative."""
    left, top, right, bottom = window["rect"]
    return (left if x >= 0 else right) + x, (top if y >= 0 else bottom) + y


def centre(window):
    left, top, right, bottom = window["rect"]
    return (left + right) // 2, (top + bottom) // 2
