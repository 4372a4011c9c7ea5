"""While a text is spoken that Pointalk waits for, or the voice hangs, others are answered and the session can end. Every such
utterance lasts an hour, so that whatever comes during it cannot have come after it."""

import contextlib
import subprocess
import unittest

from harness import Desktop, Panel, now, visit
from listening import QUICK, SETTINGS, SOON, start, voice_that_takes

HOUR = 3600
PATIENCE = 60_000  # milliseconds
OK = (960, 380)    # a button of the stand-in
MIKE = "Voice is now Mike."


class WhileItSpeaks(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desktop = cls.enterClassContext(Desktop(private=True))
        cls.hand = cls.enterClassContext(cls.desktop.hand())
        cls.probe = cls.enterClassContext(cls.desktop.probe())
        cls.panel = Panel(cls.probe, cls.hand)

    def begin(self, **environment):
        self.pointalk = self.enterContext(self.desktop.pointalk(SETTINGS))
        self.heard = self.pointalk.heard
        start(self.hand, self.pointalk, **environment)

    def speak_for_an_hour(self):
        """Has the panel, which then has the keyboard, say something that the form waits for."""
        self.begin(**voice_that_takes(HOUR, self.desktop, "Mike"))
        self.panel.open()
        self.window = self.panel.window()["hwnd"]
        self.panel.choose("Use Mike")
        self.heard.wait(lambda line: line["what"] == "sounding" and line["length"] > 1_000_000, SOON)

    def answers(self):
        return self.probe.ask("send", self.window, 0, 0, 0, PATIENCE)["answered"]

    def end_session(self):
        with contextlib.suppress(EOFError, subprocess.SubprocessError):
            self.probe.ask("send", self.window, "0x11", 0, 0)
            self.probe.ask("send", self.window, "0x16", 1, 0)
        self.pointalk.wait_for_end()
        self.assertEqual(self.pointalk.file("status.txt"), "stopped\r\n")

    def test_the_panel_answers_other_programs(self):
        self.speak_for_an_hour()
        self.assertTrue(self.answers())
        utterance, = (line["utterance"] for line in self.heard.lines() if line.get("text") == MIKE)
        self.assertNotIn(utterance, [line["utterance"] for line in self.heard.lines() if line["what"] == "sapi5 speak over"])

    def test_no_event_comes_in_meanwhile(self):
        self.speak_for_an_hour()
        since = now()
        self.probe.ask("send", self.window, "0x10", 0, 0)  # a close, which is taken for later
        self.hand.move(300, 500)
        for _ in range(10):
            self.assertTrue(self.answers())
        self.assertEqual([line for line in self.heard.lines(since) if line["what"] in ("midi", "midi close", "sapi5 speak")], [])
        self.assertTrue(self.pointalk.running())

    def test_the_session_ends(self):
        self.speak_for_an_hour()
        self.end_session()

    def test_a_voice_that_never_returns_keeps_nobody(self):
        target = self.enterContext(self.desktop.target("elements"))
        self.begin(**QUICK, POINTALK_SAPI5_HANGS="O K button")
        self.window = self.panel.window()["hwnd"]
        visit(self.hand, self.heard, OK, lambda text: text == "O K button", "the button", SOON)
        for place in ((300, 500), (700, 100)):
            since = now()
            self.hand.move(*place)
            self.heard.wait(lambda line: line["what"] == "midi", SOON, since, "a tone")
            self.assertTrue(self.answers())
        self.assertEqual(self.heard.words()[-1], "O K button")
        self.end_session()
        target.close()
