"""How Pointalk ends: by the menu, by its window's close button, with the session. And that its last words are heard."""

import contextlib
import subprocess
import unittest

from harness import Desktop, Panel, now
from listening import HIGHER, LOWER, QUICK, SETTINGS, SOON, start, voice_that_takes

QUIT = "Do you want to quit from Pointalk?"
GOODBYE = "Pointalk is ending. Goodbye."
NEVER_MIND = "O K nevermind."
# Seconds that last words sound: the shortest there is, so that a busy machine has nearly all of the time that they are given.
A_MOMENT = 0.1


class Ends(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desktop = cls.enterClassContext(Desktop(private=True))
        cls.hand = cls.enterClassContext(cls.desktop.hand())
        cls.probe = cls.enterClassContext(cls.desktop.probe())
        cls.panel = Panel(cls.probe, cls.hand)

    def setUp(self):
        self.pointalk = self.enterContext(self.desktop.pointalk(SETTINGS))
        self.heard = self.pointalk.heard
        start(self.hand, self.pointalk, **QUICK)

    def ending(self, since):
        """What was heard, without the notices of the voice's own."""
        told = {"sapi5 speak": lambda line: ("speak", line["flags"], line["text"]), "midi close": lambda line: "close",
                "sound": lambda line: ("sound", line["name"], line["module"], line["flags"])}
        return [told[line["what"]](line) for line in self.heard.lines(since) if line["what"] in told]

    def assert_stopped(self):
        self.pointalk.wait_for_end()
        self.assertEqual(self.pointalk.file("status.txt"), "stopped\r\n")

    def test_the_menu_asks_and_no_goes_on(self):
        self.panel.open()
        (self.pointalk.folder / "PTK.ini").unlink()
        since = now()
        self.panel.choose("Exit")
        self.panel.answer("Pointalk", "n")
        self.heard.wait_words("No.", SOON, since)
        self.assertIn(("speak", 3, QUIT + " Y for yes, N for No."), self.ending(since))
        self.assertIsNotNone(self.pointalk.file("PTK.ini"))  # saved before the question
        self.assertEqual(self.pointalk.file("status.txt"), "running\r\n")
        since = now()
        self.hand.move(300, 500)
        self.heard.wait(lambda line: line["what"] == "midi", SOON, since)

    def test_the_menu_asks_and_yes_says_goodbye(self):
        self.panel.open()
        since = now()
        self.panel.quit(self.pointalk)
        self.assert_stopped()
        ending = self.ending(since)
        asked = ending.index(("speak", 3, QUIT + " Y for yes, N for No."))
        self.assertEqual(ending[asked + 1:], [("speak", 3, " "), ("speak", 3, "Yes."), "close", ("speak", 3, " "),
                                              ("speak", 2, GOODBYE)])
        self.assertEqual(self.pointalk.file("PTK.ini"), SETTINGS)

    def unload_by(self, how):
        """The window is unloaded while the tones sound: they end, the voice is cut off, and nothing more is said."""
        since = now()
        self.hand.move(300, 500)
        self.addCleanup(self.hand.up)
        self.hand.down()
        self.heard.wait(lambda line: line["what"] == "midi" and line["value"].endswith(f"9{HIGHER:x}"), SOON, since)
        since = now()
        how()
        self.assert_stopped()
        ending = self.ending(since)
        self.assertEqual(ending[-3:], [("speak", 3, " "), "close", ("sound", "1", 1, 11)])
        offs = [message for message in self.heard.midi(since) if message & 0xF0 == 0x80]
        self.assertEqual([message & 0xFF for message in offs[-2:]], [0x80 + HIGHER, 0x80 + LOWER])
        return [line["done"] for line in self.heard.lines(since) if line["what"] == "sapi5 wait until done"]

    def panel_window(self):
        return self.panel.window()["hwnd"]

    def test_closing_the_window_stops_in_order(self):
        asked = self.unload_by(lambda: self.probe.ask("send", self.panel_window(), "0x10", 0, 0))
        self.assertIs(asked[-1], True)

    def test_the_system_menu_s_close_stops_in_order(self):
        self.unload_by(lambda: self.probe.ask("send", self.panel_window(), "0x112", 0xF060, 0))

    def test_the_end_of_the_session_stops_in_order_and_does_not_wait_for_the_voice(self):
        def end_session():
            self.assertEqual(self.probe.ask("send", self.panel_window(), "0x11", 0, 0)["result"], 1)
            with contextlib.suppress(EOFError, subprocess.SubprocessError):
                self.probe.ask("send", self.panel_window(), "0x16", 1, 0)

        self.assertEqual(self.unload_by(end_session), [])

    def test_a_session_that_does_not_end_after_all_changes_nothing(self):
        self.assertEqual(self.probe.ask("send", self.panel_window(), "0x11", 0, 0)["result"], 1)
        self.probe.ask("send", self.panel_window(), "0x16", 0, 0)
        since = now()
        self.hand.move(300, 500)
        self.heard.wait(lambda line: line["what"] == "midi", SOON, since)
        self.assertEqual(self.pointalk.file("status.txt"), "running\r\n")


class LastWords(unittest.TestCase):
    """The program waits for what it says last, but not for ever."""

    engines = "sapi5"

    @classmethod
    def setUpClass(cls):
        cls.desktop = cls.enterClassContext(Desktop(private=True, engines=cls.engines))
        cls.hand = cls.enterClassContext(cls.desktop.hand())
        cls.panel = Panel(cls.enterClassContext(cls.desktop.probe()), cls.hand)

    def ends_of(self, words):
        """How the utterance with these words ended, and how many microseconds of it sounded."""
        utterance, = (line["utterance"] for line in self.heard.lines() if line.get("text") == words)
        return [(line["what"], line["sounded"]) for line in self.heard.lines()
                if line["what"] in ("spoken", "cut") and line["utterance"] == utterance]

    def answers(self, question):
        return [line for line in self.heard.lines() if line["what"] == question]


class LastWordsOfSapi5(LastWords):
    def decline(self, seconds):
        """Leaves by the welcome's No, with last words that take so long."""
        self.hand.move(1000, 600)
        pointalk = self.enterContext(self.desktop.pointalk(SETTINGS, first_run=True))
        self.heard = pointalk.heard
        pointalk.start(**voice_that_takes(seconds, self.desktop, "nevermind"))
        self.panel.answer("Pointalk", "n")
        pointalk.wait_for_end()

    def test_they_are_said_to_their_end(self):
        self.decline(A_MOMENT)
        (how, sounded), = self.ends_of(NEVER_MIND)
        self.assertEqual(how, "spoken")
        self.assertGreater(sounded, 0)

    def test_a_voice_that_never_ends_does_not_keep_the_program(self):
        self.decline(3600)
        self.assertEqual(self.ends_of(NEVER_MIND), [])
        self.assertEqual({line["done"] for line in self.answers("sapi5 wait until done")}, {False})


class LastWordsOfSapi4(LastWords):
    engines = "sapi4"

    def leave(self, how, **environment):
        """Leaves in that way, with a goodbye that takes a moment."""
        pointalk = self.enterContext(self.desktop.pointalk(SETTINGS))
        self.heard = pointalk.heard
        start(self.hand, pointalk, **environment, **voice_that_takes(A_MOMENT, self.desktop, "Goodbye"))
        self.panel.open()
        how(pointalk)
        pointalk.wait_for_end()

    def assert_goodbye_is_heard(self):
        (how, sounded), = self.ends_of(GOODBYE)
        self.assertEqual(how, "spoken")
        self.assertGreater(sounded, 0)

    def test_they_are_said_to_their_end(self):
        self.leave(self.panel.quit)
        self.assert_goodbye_is_heard()
        self.assertIs(self.answers("sapi4 speaking")[-1]["value"], False)

    def test_a_control_that_does_not_tell_has_the_whole_time(self):
        self.leave(self.panel.quit, POINTALK_SAPI4_SPEAKING="untold")
        self.assert_goodbye_is_heard()

    def test_nothing_is_asked_after_a_control_that_was_silenced(self):
        self.leave(lambda _: self.hand.tap("alt+F4"))
        self.assertEqual(self.answers("sapi4 speaking"), [])
