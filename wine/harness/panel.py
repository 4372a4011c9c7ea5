"""Pointalk's control panel and the boxes that it asks with, by keys alone."""

import contextlib

from .waiting import wait_until

PANEL_CLASS = "PointalkPanel"
CAPTION = "Pointalk Control Center"
BOX_CLASS = "#32770"
MENU_CLASS = "#32768"

# The access keys of the drop-down menus, and their entries in order.
MENUS = {
    "f": ("Minimize Control Panel", "Exit"),
    "m": ("Midi On/Off", "Mouse Instrument Preset", "Horizontal Instrument", "Horizontal Volume", "Vertical Instrument",
          "Vertical Volume", "Mouse Melody Format", "Ding Volume", "Keyboard Scaling For Midi Volumes"),
    "v": ("Voice Volume", "Slow Down", "Speed Up", "Use Mary", "Use Mike", "Use Sam", "Mute Voice", "Clear Sapi Version"),
    "h": ("Instructions", "About Pointalk"),
    "p": ("Make AutoStart", "Make Not AutoStart"),
    "t": ("Send Crash Report",),
}

# In each menu with entries that can be checked, one that never is.
UNCHECKED = {"m": "Vertical Volume", "v": "Use Mike"}
MENU_FRAME = 3   # pixels around a menu's entries
MARK_WIDTH = 14  # pixels before an entry's text

LIMIT = 100     # seconds
PRESSES = 4     # of a key that is not answered


class Panel:
    def __init__(self, probe, hand, away=(900, 740)):
        """away is where the pointer rests while keys are pressed."""
        self._probe, self._hand, self._away = probe, hand, away

    def window(self):
        """The panel's window; waits for it."""
        return wait_until(lambda: self._top_window(PANEL_CLASS), LIMIT, "a control panel")

    def _top_window(self, class_name):
        return next((w for w in self._probe.ask("windows")["windows"] if w["class"] == class_name), None)

    def is_minimised(self):
        """Whether it lies at the screen's bottom and not at its top."""
        return self.window()["rect"][1] > 0

    def focus(self):
        """The foreground window, the one in it that has the keyboard, and whether a menu is open."""
        return self._probe.ask("focus")

    def controls(self):
        """The windows on the panel, in their order."""
        return self._probe.ask("windows", self.window()["hwnd"])["windows"]

    def open(self):
        """Opens the minimised panel by a double click and waits until it has the keyboard. On a busy machine the two clicks may
        be told too late for a double click; they are made again then."""
        for _ in range(PRESSES):
            left, top, right, bottom = self.window()["rect"]
            self._hand.move((left + right) // 2, (top + bottom) // 2)
            self._hand.double_click()
            with contextlib.suppress(AssertionError):
                wait_until(lambda: not self.is_minimised(), LIMIT / PRESSES, "the panel is open")
                break
        else:
            raise AssertionError(f"the panel stays closed: {self.window()}")
        self._hand.move(*self._away)
        try:
            self.wait_for_keyboard(2)
        except AssertionError:  # Wine gave it to the desktop, which the first click had left
            self.raise_it()

    def wait_for_keyboard(self, limit=LIMIT):
        """Waits until one of the panel's controls has the keyboard."""
        def ready():
            now = self.focus()
            return now["window"]["class"] == PANEL_CLASS and now["focus"]["class"] == "Button" and not now["menu"]

        wait_until(ready, limit, lambda: f"the panel has the keyboard: {self.focus()}")
        self._hand.aim(self.window()["xWindow"])

    def raise_it(self):
        """Gives the open panel the keyboard by a click on its caption."""
        left, top, right, bottom = self.window()["rect"]
        self._hand.move((left + right) // 2, top + 8)
        self._hand.click()
        self._hand.move(*self._away)
        self.wait_for_keyboard()

    def open_menu(self, key):
        """Opens a drop-down menu by its access key; returns its window. Where a program that comes up just then takes the
        keyboard, and the key with it, the panel is raised and the key pressed again."""
        opened = lambda: self.focus()["menu"] and self._top_window(MENU_CLASS)
        for _ in range(PRESSES):
            self._hand.tap("alt+" + key)
            with contextlib.suppress(AssertionError):
                return wait_until(opened, LIMIT / PRESSES, "a menu")
            self.raise_it()
        raise AssertionError(f"not the menu of {key}: {self.focus()}")

    def close_menu(self):
        self._hand.tap("Escape", "Escape")
        self.wait_for_keyboard()

    def is_checked(self, entry, desktop):
        """Whether the menu shows a check mark before an entry, by a picture of it: what is drawn there differs from what
        the entry that has never one has there."""
        key, entries = next((key, entries) for key, entries in MENUS.items() if entry in entries)
        row, other = entries.index(entry), entries.index(UNCHECKED[key])
        left, top, right, bottom = self.open_menu(key)["rect"]
        if row == 0:
            self._hand.tap("Down")  # the marked entry looks different
        height = (bottom - top - 2 * MENU_FRAME) / len(entries)
        picture = self._drawn(lambda: desktop.pixels(left + MENU_FRAME, top + MENU_FRAME, MARK_WIDTH,
                                                     bottom - top - 2 * MENU_FRAME))
        self.close_menu()
        rows = [picture[round(number * height) + 1:round(number * height) + int(height) - 1] for number in (row, other)]
        return rows[0] != rows[1]

    @staticmethod
    def _drawn(look):
        """What is seen by a look once two in a row see the same: a busy machine draws a menu row by row."""
        seen = [look()]

        def settled():
            seen.append(look())
            return seen[-1] == seen[-2]

        wait_until(settled, LIMIT, "the menu is drawn", pause=0.2)
        return seen[-1]

    def choose(self, entry):
        """Chooses an entry by its menu's access key, the arrows and Enter."""
        key, entries = next((key, entries) for key, entries in MENUS.items() if entry in entries)
        self.open_menu(key)
        self._hand.tap(*["Down"] * entries.index(entry), "Return")

    def press(self, button, key="space"):
        """Goes to a button by Tab and presses it."""
        for _ in range(10):
            if self.focus()["focus"]["title"] == button:
                self._hand.tap(key)
                return
            before = self.focus()["focus"]["hwnd"]
            self._hand.tap("Tab")
            wait_until(lambda: self.focus()["focus"]["hwnd"] not in (0, before), LIMIT, "Tab goes on")
        raise AssertionError(f"no button {button}")

    def box(self, title):
        """Waits for the box with that title; returns its window with the texts on it. It has the keyboard before it is
        seen, and texts only then."""
        def asks():
            now = self.focus()
            ours = (now["window"]["class"], now["window"]["title"]) == (BOX_CLASS, title)
            if not ours or now["focus"]["class"] not in ("Button", "Edit"):
                return None
            texts = [self._probe.ask("text", child["hwnd"], 2000)["text"]
                     for child in self._probe.ask("windows", now["window"]["hwnd"])["windows"]]
            return {**now["window"], "texts": texts} if texts else None

        return wait_until(asks, LIMIT, lambda: f"a box {title!r}: {self.focus()}")

    def answer(self, title, *keys, typed=None):
        """Answers the box with that title: types a text or presses keys, and waits until the box is gone."""
        window = self.box(title)
        self._hand.aim(window["xWindow"])
        if typed is not None:
            if typed:
                self._hand.type(typed)
            else:
                self._hand.tap("BackSpace")
            wait_until(lambda: self._probe.ask("text", self.focus()["focus"]["hwnd"], 2000)["text"] == typed, LIMIT,
                       lambda: f"{typed!r} in the box {title!r}: {self.focus()}")
            keys = (*keys, "Return")
        self._hand.tap(*keys)
        wait_until(lambda: self.focus()["window"]["hwnd"] != window["hwnd"], LIMIT, f"the box {title!r} is gone after {keys}")
        return window

    def quit(self, pointalk):
        """Leaves by File, Exit and waits for the end."""
        self.choose("Exit")
        self.answer("Pointalk", "y")
        pointalk.wait_for_end()
