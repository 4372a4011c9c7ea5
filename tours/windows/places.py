"""Finds windows of the visited programs and puts them side by side."""

from harness import wait_until

ROW = 16    # pixels of a row in lists and texts, about
LABEL = 40  # pixels from a list's left edge to where every label is
EDGE = 6    # pixels of a text's margin


class Places:
    def __init__(self, probe):
        self._probe = probe

    def top_window(self, class_name, title="", limit=40):
        """The visible top-level window of a class with that in its title; waits for it."""
        def look():
            return next((w for w in self._probe.ask("windows")["windows"] if w["class"] == class_name and title in w["title"]),
                        None)

        return wait_until(look, limit, f"a window of class {class_name} is shown")

    def put(self, window, rect, limit=10):
        """Moves a window; one that has a size of its own keeps it."""
        self._probe.ask("place", window["hwnd"], rect)

        def placed():
            now = next(w for w in self._probe.ask("windows")["windows"] if w["hwnd"] == window["hwnd"])
            return now if now["rect"][:2] == list(rect[:2]) else None

        return wait_until(placed, limit, "a window is where it was put")

    def child(self, window, class_name, title=None, number=0, limit=10):
        """A visible window below one, by its class and, where given, its title; the number-th of several."""
        def look():
            found = [w for w in self._probe.ask("windows", window["hwnd"])["windows"]
                     if w["class"] == class_name and title in (None, w["title"])]
            return found[number] if len(found) > number else None

        return wait_until(look, limit, f"a {class_name} {title or ''} is shown")

    def item(self, window, label, limit=10):
        """A place on the item of a list view with that label, which is looked for near the left edge."""
        left, top, _, bottom = window["rect"]

        def look():
            for y in range(top + ROW // 2, bottom, ROW // 2):
                if self._probe.ask("at", left + LABEL, y)["hwnd"] != window["hwnd"]:
                    continue  # the list's header
                hit = self._probe.ask("hit", window["hwnd"], left + LABEL, y)
                if hit["item"] >= 0 and self._probe.ask("label", window["hwnd"], hit["item"])["text"] == label:
                    return left + LABEL, y
            return None

        return wait_until(look, limit, f"an item {label} is shown")

    def word(self, window, text, word, limit=10):
        """A place on the second character of a word in a rich edit that holds the text, its line ends counted as one."""
        left, top, right, bottom = window["rect"]
        index = text.index(word) + 1

        def at(x, y):
            return self._probe.ask("character", window["hwnd"], x, y)["result"]

        def look():
            for y in range(top + ROW // 2, bottom, ROW // 2):
                if text[at(left + EDGE, y):index].count("\r") or at(right - EDGE, y) < index:
                    continue  # a line above or below
                return next(((x, y) for x in range(left + EDGE, right, 2) if at(x, y) == index), None)
            return None

        return wait_until(look, limit, f"the word {word} is shown")


def inside(window, x, y):
    """A point of a window: pixels from its left and top, or from its right and bottom where negative."""
    left, top, right, bottom = window["rect"]
    return (left if x >= 0 else right) + x, (top if y >= 0 else bottom) + y


def centre(window):
    left, top, right, bottom = window["rect"]
    return (left + right) // 2, (top + bottom) // 2
