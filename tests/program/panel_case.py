"""What the tests of the control panel share: a Pointalk whose panel is open, by keys."""

import unittest

from harness import Desktop, Panel, names_desktop, now, visit, wait_until
from harness.settings import DEFAULTS

SOON = 100  # seconds after which what has not come never will
AWAY = (900, 740)  # where the pointer waits, over the bare desktop
ENTER = " When you're done typing it, please hit enter."


def values(pointalk):
    """The settings file as its values by their names."""
    lines = (pointalk.file("PTK.ini") or "").splitlines()
    return dict(line.split(" = ", 1) for line in lines if " = " in line)


def check_whole(test, text):
    """Fails the test when the text is not all of one save."""
    test.assertTrue(text.endswith("\r\n"), text)
    lines = text.split("\r\n")[:-1]
    test.assertEqual(len(lines), 17, text)
    test.assertEqual([line.split(" = ")[0] for line in lines if " = " in line], list(DEFAULTS))
    test.assertEqual(len({line.split(" = ")[1] for line in lines[2:5]}), 1, "one save has one volume")


class DesktopCase(unittest.TestCase):
    """A desktop with a hand for all tests of the class."""

    ENGINES = "sapi5"

    @classmethod
    def setUpClass(cls):
        cls.desktop = cls.enterClassContext(Desktop(private=True, engines=cls.ENGINES))
        cls.probe = cls.enterClassContext(cls.desktop.probe())
        cls.hand = cls.enterClassContext(cls.desktop.hand())
        cls.panel = Panel(cls.probe, cls.hand, AWAY)

    def start(self, pointalk, **environment):
        """Starts it with a voice that takes no time, and opens its panel."""
        self.begin(pointalk, **environment)
        pointalk.wait_ready()
        self.open_panel(pointalk)

    def begin(self, pointalk, **environment):
        self.hand.move(*AWAY)
        pointalk.start(POINTALK_ESPEAK="true", **environment)

    def open_panel(self, pointalk):
        wait_until(lambda: self.panel.is_minimised(), SOON, "the panel is minimised")
        since = now()
        self.panel.open()
        pointalk.heard.wait_words("DoubleClick", SOON, since)
        visit(self.hand, pointalk.heard, AWAY, names_desktop, "the desktop, under the pointer", SOON, since)


class PanelCase(DesktopCase):
    """Every test of the class finds the same Pointalk with its panel open; start_settings is its file."""

    start_settings = None

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.pointalk = cls.enterClassContext(cls.desktop.pointalk(cls.start_settings))
        starter = cls()
        starter.start(cls.pointalk)

    def saved(self, **expected):
        """Waits until the settings file holds these values."""
        expected = {key: str(value) for key, value in expected.items()}
        wait_until(lambda: expected.items() <= values(self.pointalk).items(), SOON,
                   lambda: f"{expected}; saved {values(self.pointalk)}")

    def words(self, since):
        """What was said, without the name of what the pointer waits over: it is said again after a command."""
        return [text for text in self.pointalk.heard.words(since) if not names_desktop(text)]

    def said(self, text, since):
        self.pointalk.heard.wait_words(text, SOON, since)

    def number(self, entry, title, prompt, default, answer):
        """Chooses an entry that asks for a number, compares what is said and shown, and answers: a text, or None for
        Escape. The panel has the keyboard again when it is over."""
        since = now()
        self.panel.choose(entry)
        keys = ("Escape",) if answer is None else ()
        box = self.panel.answer(title, *keys, typed=answer)
        self.said("Thank you.", since)
        self.assertEqual(box["texts"][:2], [prompt, default])
        spoken_default = f", default = {default}." if default else ""
        self.assertEqual(self.words(since), [f"{prompt}{spoken_default}{ENTER}", "Thank you."])
        self.panel.wait_for_keyboard()

    def notice(self, title, begin, hint, since, *keys, then):
        """Answers a box with keys. Its text is shown and said with this beginning, and said with a hint at the end; then other
        words are said."""
        box = self.panel.answer(title, *keys)
        self.said(then[-1], since)
        self.assertTrue(any(text.startswith(begin) for text in box["texts"]), box)
        spoken, *others = self.words(since)
        self.assertTrue(spoken.startswith(begin) and spoken.endswith(hint), spoken)
        self.assertEqual(others, then)
        self.panel.wait_for_keyboard()
